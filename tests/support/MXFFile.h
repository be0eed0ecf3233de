#pragma once

#include "KLV/Key.h"
#include "Packs/PartitionPack.h"
#include "Packs/RandomIndexPack.h"
#include "Types/Batch.h"
#include "Utils/Fill.h"
#include "support/Partition.h"

#include <functional>

namespace Vantry { namespace Tests {

auto const HEADER = Packs::PartitionPack::HEADER_PARTITION;
auto const BODY = Packs::PartitionPack::BODY_PARTITION;
auto const FOOTER = Packs::PartitionPack::FOOTER_PARTITION;
auto const OPEN = Packs::PartitionPack::OPEN_INCOMPLETE;
auto const CLOSED = Packs::PartitionPack::CLOSED_COMPLETE;

/// A fill item of so many bytes in all, 20 at least.
inline Bytes fill(UInt64 size)
{
    BytesSink sink;
    Utils::writeFillKLV(sink, size, 4);
    return sink.bytes();
}

/// The key of an element of the Generic Container.
inline KLV::Key essenceKey(unsigned char element = 1)
{
    Bytes bytes = hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 15 01 05 00");
    bytes[15] = element;
    return KLV::Key(bytes.data());
}

/// Packets of one edit unit each, whose values count up from their number.
inline Bytes essence(unsigned int packets, UInt64 valueSize)
{
    Bytes bytes;
    for (unsigned int i = 0; i < packets; ++i)
        bytes += packet(essenceKey(), counting(valueSize, static_cast<unsigned char>(i)));
    return bytes;
}

/// Header metadata with primer pack: a Preface of number 0 and below it a
/// chain of nodes.
inline Bytes chainMetadata(unsigned int nodes)
{
    Partition partition;
    partition.addChain(nodes);
    return partition.written(Metadata::PartitionMetadata::PrefaceFirst);
}

/// A partition as it is to be: the rest of the pack follows from the file.
struct FilePart
{
    Packs::PartitionPack::PartitionKind kind = Packs::PartitionPack::BODY_PARTITION;
    Packs::PartitionPack::PartitionStatus status = Packs::PartitionPack::CLOSED_COMPLETE;
    Bytes metadata = {};
    Bytes body = {};
    unsigned int bodySID = 0;
    Bytes index = {};
    unsigned int indexSID = 0;

    /// Between the pack and the metadata.
    Bytes gap = {};

    /// Makes the pack tell what isn't so.
    std::function<void(Packs::PartitionPack &)> lie = {};
};

/// The bytes of a whole file, with offsets as they should be.
class MXFFile
{
public:
    /// \param withRIP  whether a random index pack ends it
    explicit MXFFile(std::vector<FilePart> parts, bool withRIP = true, Bytes runIn = {}) :
        parts_(std::move(parts)), runIn_(std::move(runIn))
    {
        UInt64 offset = 0;
        for (FilePart const & part : parts_)
        {
            offsets_.push_back(offset);
            offset += PACK_SIZE + part.gap.size() + part.metadata.size() + part.index.size() + part.body.size();
        }

        Packs::RandomIndexPack rip;
        UInt64 bodyOffset = 0;
        bytes_ = runIn_;
        for (std::size_t i = 0; i < parts_.size(); ++i)
        {
            FilePart const & part = parts_[i];
            bytes_ += serialized(pack(i, bodyOffset)) + part.gap + part.metadata + part.index + part.body;
            bodyOffset += part.body.size();
            rip.add(part.bodySID, offsets_[i]);
        }
        if (withRIP)
            bytes_ += serialized(rip);
    }

    Bytes const & bytes() const { return bytes_; }

    /// Where a partition starts, from the end of the run-in.
    UInt64 offset(std::size_t part) const { return offsets_[part]; }

    /// Bytes of a partition pack without essence containers.
    static UInt64 const PACK_SIZE = 108;

private:
    Packs::PartitionPack pack(std::size_t i, UInt64 bodyOffset) const
    {
        using Packs::PartitionPack;
        FilePart const & part = parts_[i];
        FilePart const & last = parts_.back();
        PartitionPack pack(Packs::buildPartitionPackKey(part.kind, part.status), 1, offsets_[i],
                           part.bodySID != 0 ? bodyOffset : 0,
                           Types::UniversalLabel(hex("060E2B34040101010D01020101010900").data()),
                           Templates::auto_ptr<Types::Batch>(new Types::Batch(16)));
        pack.previousPartition(i == 0 ? 0 : offsets_[i - 1]);
        pack.footerPartition(last.kind == PartitionPack::FOOTER_PARTITION ? offsets_.back() : 0);
        pack.headerByteCount(part.metadata.size());
        pack.indexByteCount(part.index.size());
        pack.indexSID(part.indexSID);
        pack.bodySID(part.bodySID);
        if (part.lie)
            part.lie(pack);
        return pack;
    }

    std::vector<FilePart> parts_;
    Bytes runIn_;
    std::vector<UInt64> offsets_;
    Bytes bytes_;
};

}}

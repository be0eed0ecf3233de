#pragma once

#include "IndexTables/IndexTableSegment.h"
#include "Packs/PartitionPack.h"
#include "Packs/RandomIndexPack.h"
#include "Utils/NumberText.h"
#include "support/HeaderMetadata.h"

#include <map>
#include <set>

namespace Vantry { namespace Tests {

/// A file held against itself: what its packs say of places and sizes, and
/// what a walk over its packets finds.
class WrittenFile
{
public:
    /// A partition as it is found.
    struct Part
    {
        Packs::PartitionPack pack;

        /// From the end of the run-in.
        UInt64 offset;

        /// Bytes of each area, with the fill behind it.
        UInt64 packBytes = 0;
        UInt64 headerBytes = 0;
        UInt64 indexBytes = 0;
        UInt64 essenceBytes = 0;

        std::vector<std::shared_ptr<IndexTables::IndexTableSegment>> segments = {};
    };

    explicit WrittenFile(DataIO::RandomAccessDataSource & source) : source_(source) { walk(); }

    std::vector<Part> const & parts() const { return parts_; }
    UInt64 runInSize() const { return runInSize_; }
    bool hasRIP() const { return rip_ != nullptr; }

    /// All that is not as the packs say.
    ///
    /// \param finished  whether all packs should know the footer
    std::vector<std::string> faults(bool finished = true)
    {
        faults_ = walkFaults_;
        UInt64 const footer =
            !parts_.empty() && parts_.back().pack.partitionKind() == Kind::FOOTER_PARTITION ? parts_.back().offset : 0;
        UInt64 previous = 0;
        std::map<unsigned int, UInt64> streams;
        for (Part const & part : parts_)
        {
            checkPlaces(part, previous, footer, finished);
            checkSizes(part);
            checkStreams(part, streams[part.pack.bodySID()]);
            previous = part.offset;
        }
        if (rip_ != nullptr)
            checkRIP();
        return faults_;
    }

private:
    using Kind = Packs::PartitionPack;

    // The parts of a partition come in this order.
    enum Area
    {
        PACK,
        METADATA,
        INDEX,
        ESSENCE
    };

    void walk()
    {
        KLV::Reader reader(source_);
        UInt64 start = 0;
        UInt64 skipped = 0;
        while (auto const packet = nextPacket(reader, skipped))
        {
            if (parts_.empty() && rip_ == nullptr)
                start = runInSize_ = skipped;
            else if (skipped != 0)
                walkFaults_.push_back("bytes ahead of " + std::to_string(start + skipped) + " belong to no packet");
            skipped = 0;
            start = take(*packet, start);
        }
        if (start != source_.absoluteOffset() + source_.remaining())
            walkFaults_.push_back("bytes behind " + std::to_string(start) + " belong to no packet");
    }

    // Returns where the packet ends.
    UInt64 take(KLV::Packet & packet, UInt64 start)
    {
        if (rip_ != nullptr)
            walkFaults_.push_back("a packet behind the random index pack");

        KLV::Key const key = packet.key();
        if (Packs::isPartitionPack(key))
        {
            parts_.push_back({Packs::PartitionPack(packet), start - runInSize_});
            area_ = PACK;
        }
        else if (Packs::isRandomIndexPack(key))
            takeRIP(packet);
        else
            enter(areaOf(key), packet);

        packet.value().discard();
        UInt64 const end = source_.absoluteOffset();
        if (rip_ == nullptr && !parts_.empty())
            bytesOf(parts_.back(), area_) += end - start;
        return end;
    }

    Area areaOf(KLV::Key const & key) const
    {
        static Bytes const CONTAINER = hex("0D 01 03 01");
        if (KLV::isFillItem(key))
            return area_;
        if (key == IndexTables::IndexTableSegment::key())
            return INDEX;
        bool const isEssence = std::equal(CONTAINER.begin(), CONTAINER.end(), key.rawBuffer() + 8);
        return key[4] == 2 && !isEssence && area_ <= METADATA ? METADATA : ESSENCE;
    }

    void enter(Area area, KLV::Packet & packet)
    {
        if (parts_.empty())
            walkFaults_.push_back("a packet ahead of the first partition");
        else if (area < area_)
            walkFaults_.push_back(place(parts_.back()) + "index behind essence");
        else if (area == INDEX && !KLV::isFillItem(packet.key()))
            parts_.back().segments.push_back(std::make_shared<IndexTables::IndexTableSegment>(packet, nullptr));
        area_ = std::max(area_, area);
    }

    void takeRIP(KLV::Packet & packet)
    {
        rip_ = std::make_unique<Packs::RandomIndexPack>(packet);
        source_.seek(source_.absoluteOffset() - 4);
        Bytes length(4);
        source_.read(length.data(), 4);
        for (unsigned char byte : length)
            ripLength_ = ripLength_ << 8 | byte;
    }

    static UInt64 & bytesOf(Part & part, Area area)
    {
        UInt64 * const bytes[] = {&part.packBytes, &part.headerBytes, &part.indexBytes, &part.essenceBytes};
        return *bytes[area];
    }

    static std::string place(Part const & part) { return "partition at " + std::to_string(part.offset) + ": "; }

    void compare(Part const & part, char const * what, UInt64 stated, UInt64 found)
    {
        if (stated != found)
            faults_.push_back(place(part) + what + " is " + std::to_string(found) + ", and said to be " +
                              std::to_string(stated));
    }

    void checkPlaces(Part const & part, UInt64 previous, UInt64 footer, bool finished)
    {
        bool const isFirst = &part == &parts_.front();
        compare(part, "kind", part.pack.partitionKind() == Kind::HEADER_PARTITION, isFirst);
        compare(part, "version", 100u * part.pack.majorVersion() + part.pack.minorVersion(), 102);
        compare(part, "place", part.pack.thisPartition(), part.offset);
        compare(part, "previous partition", part.pack.previousPartition(), previous);
        bool const knowsFooter = finished || part.pack.partitionKind() == Kind::FOOTER_PARTITION;
        if (knowsFooter || part.pack.footerPartition() != 0)
            compare(part, "footer partition", part.pack.footerPartition(), footer);
    }

    void checkSizes(Part const & part)
    {
        compare(part, "header byte count", part.pack.headerByteCount(), part.headerBytes);
        compare(part, "index byte count", part.pack.indexByteCount(), part.indexBytes);
        bool const isFinal = part.pack.isGenericStreamsPartition() || (!part.pack.isOpen() && part.pack.isComplete());
        if (part.headerBytes == 0)
            compare(part, "status without metadata", isFinal, true);

        UInt64 const kagSize = std::max(1u, part.pack.kagSize());
        UInt64 position = 0;
        for (UInt64 bytes : {part.packBytes, part.headerBytes, part.indexBytes})
            compare(part, "place behind a grid line", 0, (position += bytes) % kagSize);
    }

    // `streamBytes` are those of the stream in the partitions before.
    void checkStreams(Part const & part, UInt64 & streamBytes)
    {
        bool const hasEssence = part.pack.bodySID() != 0;
        compare(part, "body offset", part.pack.bodyOffset(), hasEssence ? streamBytes : 0);
        if (!hasEssence)
            compare(part, "essence without a stream", 0, part.essenceBytes);
        streamBytes += part.essenceBytes;

        compare(part, "index", part.pack.indexSID() != 0, !part.segments.empty());
        for (auto const & segment : part.segments)
            compare(part, "index SID", part.pack.indexSID(), segment->indexSID() ? segment->indexSID()->value() : 0);
    }

    void checkRIP()
    {
        Packs::RandomIndexPack expected;
        for (Part const & part : parts_)
            expected.add(part.pack.bodySID(), part.offset);
        if (rip_->offsetIndexedMap() != expected.offsetIndexedMap())
            faults_.push_back("random index pack: other partitions than there are");
        if (ripLength_ != rip_->serializedSize())
            faults_.push_back("random index pack: not of the length that it says");
    }

    DataIO::RandomAccessDataSource & source_;
    std::vector<Part> parts_;
    std::unique_ptr<Packs::RandomIndexPack> rip_;
    UInt64 ripLength_ = 0;
    UInt64 runInSize_ = 0;
    Area area_ = PACK;
    std::vector<std::string> walkFaults_;
    std::vector<std::string> faults_;
};

}}

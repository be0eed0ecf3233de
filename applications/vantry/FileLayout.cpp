#include "FileLayout.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "FileRegion.h"
#include "KLV/Key.h"
#include "KLV/Packet.h"
#include "MXFIO/Partition.h"
#include "MetaMetadata/Dictionary.h"
#include "PacketFaults.h"
#include "PacketWalk.h"
#include "Packs/PartitionPack.h"
#include "Platform/BigEndian.h"
#include "Warnings.h"

#include <algorithm>

namespace Vantry { namespace Application {

namespace {

// Partitions are looked for, not into.
Templates::SharedPtr<MetaMetadata::Dictionary> const NO_DICTIONARY;

// Footers without much metadata, and what follows them, fit in here.
UInt64 const TAIL_SIZE = 65536;

UInt64 sizeOf(DataIO::RandomAccessDataSource & file)
{
    file.seek(0);
    return file.remaining();
}

bool hasPartitionKey(DataIO::RandomAccessDataSource & file, UInt64 position)
{
    unsigned char bytes[16];
    file.seek(position);
    return file.read(bytes, sizeof(bytes)) == sizeof(bytes) && Packs::isPartitionPack(KLV::Key(bytes));
}

/// Whether each partition names the one ahead of it.
bool nameEachOther(std::vector<MXFIO::Partition *> const & partitions)
{
    for (std::size_t i = 1; i < partitions.size(); ++i)
        if (partitions[i]->partitionPack().previousPartition() != partitions[i - 1]->partitionPack().thisPartition())
            return false;
    return true;
}

}

bool isFooter(MXFIO::Partition const & partition)
{
    return partition.partitionPack().partitionKind() == Packs::PartitionPack::FOOTER_PARTITION;
}

/// Notes partition packs and a random index pack among packets.
class FileLayout::PacketNotes : public PacketListener
{
public:
    explicit PacketNotes(Warnings & warnings) : warnings_(warnings) {}

    void value(KLV::Packet & packet) override
    {
        if (Packs::isPartitionPack(packet.key()))
            partitions.push_back(packet.keyAbsoluteOffset());
        else if (Packs::isRandomIndexPack(packet.key()))
            take(packet);
    }

    void packet(KLV::Packet const & packet, UInt64 bytesThere) override
    {
        if (bytesThere < packet.length())
            warnings_.add(cutFault(packet, bytesThere));
    }

    void gap(UInt64 offset, UInt64 size, bool) override { warnings_.add(gapFault(offset, size)); }

    std::vector<UInt64> partitions;
    Templates::SharedPtr<Packs::RandomIndexPack const> rip;
    UInt64 ripOffset = 0;

private:
    void take(KLV::Packet & packet)
    {
        try
        {
            rip = Templates::SharedPtr<Packs::RandomIndexPack const>(new Packs::RandomIndexPack(packet));
            ripOffset = packet.keyAbsoluteOffset();
        }
        catch (Exceptions::InvalidLength const &)
        {
            warnings_.add(fmt::format("the random index pack at offset {} can't be read", packet.keyAbsoluteOffset()));
        }
    }

    Warnings & warnings_;
};

FileLayout::FileLayout(DataIO::RandomAccessDataSource & file, Warnings & warnings) :
    file_(file), size_(sizeOf(file)), reader_(file, NO_DICTIONARY, LONGEST_RUN_IN), ripOffset_(size_)
{
    MXFIO::Partition * const header = reader_.headerPartition();
    if (header == nullptr)
        return;

    findRIP();
    if (!takeAllOfRIP() && !takeBackFromLast())
        takeForward(warnings);
    partitions_.push_back(header);
    sortOut();
    if (!rip_)
        lookBehindFooter(warnings);
    for (std::size_t i = 0; i < partitions_.size(); ++i)
        partitionsOfStreams_[partitions_[i]->partitionPack().bodySID()].push_back(i);
}

std::vector<std::size_t> const & FileLayout::partitionsOf(unsigned int bodySID) const
{
    static std::vector<std::size_t> const NONE;
    auto const found = partitionsOfStreams_.find(bodySID);
    return found != partitionsOfStreams_.end() ? found->second : NONE;
}

UInt64 FileLayout::end(std::size_t partition) const
{
    bool const last = partition + 1 == partitions_.size();
    return last ? ripOffset_ : partitions_[partition + 1]->partitionAbsoluteOffset();
}

void FileLayout::findRIP()
{
    // The reader that finds partitions doesn't get to know it: it might lie.
    MXFIO::Reader reader(file_, reader_.dictionary(), 0);
    if (!reader.loadRIP())
        return;

    rip_ = reader.rip();
    unsigned char length[4];
    file_.seek(size_ - sizeof(length));
    file_.read(length, sizeof(length));
    ripOffset_ = size_ - Platform::readBigEndian<UInt32>(length);
}

bool FileLayout::takeAllOfRIP()
{
    if (!rip_ || rip_->size() == 0)
        return false;

    for (auto const & [offset, bodySID] : rip_->offsetIndexedMap())
        if (MXFIO::Partition * const partition = partitionAt(offset))
            partitions_.push_back(partition);
    return partitions_.size() == rip_->size() && isFooter(*partitions_.back()) &&
           partitions_.front() == reader_.headerPartition() && nameEachOther(partitions_);
}

bool FileLayout::takeBackFromLast()
{
    MXFIO::Partition * const header = reader_.headerPartition();
    UInt64 const footer = header->partitionPack().footerPartition();
    MXFIO::Partition * partition = footer != 0 && footer < size_ ? partitionAt(footer) : nullptr;
    if (partition == nullptr)
        partition = reader_.lastPartition(TAIL_SIZE);

    try
    {
        for (; partition != nullptr && partition != header; partition = reader_.previousPartition(partition))
            partitions_.push_back(partition);
    }
    catch (Exceptions::InvalidFormat const &)
    {
        return false;
    }
    sortOut();
    return partition == header && !partitions_.empty() && isFooter(*partitions_.back());
}

void FileLayout::takeForward(Warnings & warnings)
{
    walkFrom(*reader_.headerPartition(), warnings);
}

/// Behind a footer there may be a random index pack with something behind it.
void FileLayout::lookBehindFooter(Warnings & warnings)
{
    if (isFooter(*partitions_.back()))
        walkFrom(*partitions_.back(), warnings);
}

void FileLayout::walkFrom(MXFIO::Partition const & partition, Warnings & warnings)
{
    UInt64 const start = std::min(partition.metadataAbsoluteOffset(), size_);
    PacketNotes notes(warnings);
    file_.seek(start);
    FileRegion rest(file_, size_ - start);
    walkPackets(rest, notes);

    for (UInt64 const offset : notes.partitions)
        if (MXFIO::Partition * const found = partitionAt(offset - runIn()))
            partitions_.push_back(found);
        else
            warnings.add(fmt::format("the partition pack at offset {} can't be read", offset));
    if (notes.rip && !rip_)
    {
        rip_ = notes.rip;
        ripOffset_ = notes.ripOffset;
    }
}

/// The partition whose pack is exactly there, null for none.
MXFIO::Partition * FileLayout::partitionAt(UInt64 offset)
{
    // The reader would go on over all packets until it meets a partition.
    if (offset > size_ || offset + runIn() > size_ || !hasPartitionKey(file_, offset + runIn()))
        return nullptr;

    MXFIO::Partition * const partition = reader_.partitionAtOffset(offset);
    return partition != nullptr && partition->partitionAbsoluteOffset() == offset + runIn() ? partition : nullptr;
}

void FileLayout::sortOut()
{
    std::sort(partitions_.begin(), partitions_.end(),
              [](MXFIO::Partition const * left, MXFIO::Partition const * right)
              { return left->partitionAbsoluteOffset() < right->partitionAbsoluteOffset(); });
    partitions_.erase(std::unique(partitions_.begin(), partitions_.end()), partitions_.end());
}

}}

#include "MXFIO/SequentialReader.h"

#include "DataIO/DataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/NotEnoughData.h"
#include "IndexTables/IndexTableSegment.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "MXFIO/SaturatingSum.h"
#include "MetaMetadata/Dictionary.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/PartitionMetadata.h"
#include "Packs/PartitionPack.h"
#include "Packs/PrimerPack.h"
#include "Packs/RandomIndexPack.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

using Packs::PrimerPack;

// Header metadata as it is read.
struct Area
{
    // Bytes that the partition pack still promises.
    UInt64 left;

    Templates::auto_ptr<PrimerPack> primer;
};

}

class SequentialReader::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(SequentialReader & theOwner, DataIO::DataSource & theSource,
         Templates::SharedPtr<MetaMetadata::Dictionary> theDictionary) :
        source(theSource), owner_(theOwner), packets_(theSource), dictionary_(std::move(theDictionary))
    {
    }

    // Passes over what a handler has left of the last packet.
    bool isAtEnd();

    // Reads what is next and hands it over.
    void dispatch(UInt64 searchLimit);

    // Whether the source ends within the last packet.
    bool isCut() const { return source.endOfStream() && source.absoluteOffset() < packetEnd_; }

    DataIO::DataSource & source;

private:
    using PacketPtr = Templates::auto_ptr<KLV::Packet>;

    PacketPtr nextPacket();
    PacketPtr nextPacket(UInt64 & skipped);
    void loadPartition();
    Area loadPrimer(UInt64 headerByteCount);
    Templates::auto_ptr<Metadata::PartitionMetadata> loadMetadata(Area area);
    bool isLoaded(KLV::Key const & key);

    SequentialReader & owner_;
    KLV::Reader packets_;
    Templates::SharedPtr<MetaMetadata::Dictionary> const dictionary_;
    UInt64 searchLimit_ = 0;
    UInt64 packetEnd_ = 0;
};

bool SequentialReader::Impl::isAtEnd()
{
    UInt64 const position = source.absoluteOffset();
    if (position < packetEnd_)
        source.skip(packetEnd_ - position);
    return source.endOfStream();
}

void SequentialReader::Impl::dispatch(UInt64 searchLimit)
{
    searchLimit_ = searchLimit;
    UInt64 skipped = 0;
    KLV::Key const key = packets_.peekNextKey(skipped, searchLimit);

    if (Packs::isPartitionPack(key))
        loadPartition();
    else if (KLV::isIndexTableKlvSegment(key))
        owner_.handleIndexTableSegment(Templates::auto_ptr<IndexTables::IndexTableSegment>(
            new IndexTables::IndexTableSegment(*nextPacket(), nullptr)));
    else if (KLV::isEssence(key))
        owner_.handleEssence(nextPacket());
    else if (Packs::isRandomIndexPack(key))
        owner_.handleRIP(Templates::auto_ptr<Packs::RandomIndexPack>(new Packs::RandomIndexPack(*nextPacket())));
    else if (KLV::isFillItem(key))
        owner_.handleFillItem(nextPacket());
    else
        owner_.handleUnknown(nextPacket());
}

// The packet whose key is next, or was peeked.
SequentialReader::Impl::PacketPtr SequentialReader::Impl::nextPacket()
{
    UInt64 skipped = 0;
    return nextPacket(skipped);
}

SequentialReader::Impl::PacketPtr SequentialReader::Impl::nextPacket(UInt64 & skipped)
{
    PacketPtr packet = packets_.nextKLV(skipped, searchLimit_);
    packetEnd_ = saturatingSum(source.absoluteOffset(), packet->length());
    return packet;
}

void SequentialReader::Impl::loadPartition()
{
    Templates::auto_ptr<Packs::PartitionPack> pack(new Packs::PartitionPack(*nextPacket()));
    Templates::auto_ptr<Metadata::PartitionMetadata> metadata;
    if (pack->headerByteCount() != 0)
        metadata = loadMetadata(loadPrimer(pack->headerByteCount()));
    owner_.handlePartition(std::move(pack), std::move(metadata));
}

Area SequentialReader::Impl::loadPrimer(UInt64 headerByteCount)
{
    UInt64 skipped = 0;
    if (KLV::isFillItem(packets_.peekNextKey(skipped, 0)))
        nextPacket();

    PacketPtr const packet = nextPacket();
    VANTRY_CHECK_TEXT(packet->key() == PrimerPack::key(), "packet -> key () == PrimerPack::key ()", InvalidFormat,
                      "This partition does not have a primer at the beginning of the metadata.");
    UInt64 const length = std::min(packet->klvLength(), headerByteCount);
    return {headerByteCount - length, Templates::auto_ptr<PrimerPack>(new PrimerPack(*packet))};
}

Templates::auto_ptr<Metadata::PartitionMetadata> SequentialReader::Impl::loadMetadata(Area area)
{
    Templates::auto_ptr<Metadata::PartitionMetadata> metadata(
        new Metadata::PartitionMetadata(Templates::auto_ptr<Metadata::PartitionDictionary>(
            new Metadata::PartitionDictionary(dictionary_, area.primer))));

    while (area.left > 0)
    {
        UInt64 skipped = 0;
        PacketPtr const packet = nextPacket(skipped);
        if (packet->klvLength() > area.left)
            break;
        area.left -= std::min(saturatingSum(packet->klvLength(), skipped), area.left);
        if (isLoaded(packet->key()))
            metadata->load(*packet);
        packet->value().discard();
    }
    return metadata;
}

bool SequentialReader::Impl::isLoaded(KLV::Key const & key)
{
    return KLV::isMXFDefaultLocalSet(key) || owner_.preserveUnknowMetadataKLV(key);
}

SequentialReader::SequentialReader(DataIO::DataSource & source,
                                   Templates::SharedPtr<MetaMetadata::Dictionary> dictionary) :
    impl_(new Impl(*this, source, std::move(dictionary)))
{
}

SequentialReader::~SequentialReader()
{
    delete impl_;
}

bool SequentialReader::next(UInt64 searchLimit)
{
    if (impl_->isAtEnd())
        return false;

    try
    {
        impl_->dispatch(searchLimit);
        return true;
    }
    catch (Exceptions::NotEnoughData const &)
    {
        return false;
    }
    catch (Exceptions::InvalidLength const &)
    {
        // A pack or a set may be cut off, or bad in itself.
        if (impl_->isCut())
            return false;
        throw;
    }
}

void SequentialReader::handlePartition(Templates::auto_ptr<Packs::PartitionPack>,
                                       Templates::auto_ptr<Metadata::PartitionMetadata>)
{
}

void SequentialReader::handleIndexTableSegment(Templates::auto_ptr<IndexTables::IndexTableSegment>) {}

void SequentialReader::handleEssence(Templates::auto_ptr<KLV::Packet>) {}

void SequentialReader::handleRIP(Templates::auto_ptr<Packs::RandomIndexPack>) {}

void SequentialReader::handleFillItem(Templates::auto_ptr<KLV::Packet>) {}

void SequentialReader::handleUnknown(Templates::auto_ptr<KLV::Packet>) {}

bool SequentialReader::preserveUnknowMetadataKLV(KLV::Key const &)
{
    return false;
}

}}

#include "MXFIO/Partition.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidMetadataSet.h"
#include "Exceptions/InvalidPosition.h"
#include "Exceptions/NotEnoughData.h"
#include "IndexTables/IndexTableSegment.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "MXFIO/BlockSource.h"
#include "MXFIO/PartitionListener.h"
#include "MXFIO/Reader2.h"
#include "MXFIO/SaturatingSum.h"
#include "MetaMetadata/Dictionary.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/PartitionMetadata.h"
#include "Packs/PartitionPack.h"
#include "Packs/PrimerPack.h"
#include "Utils/NumberText.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

enum State
{
    PartitionStart,
    PartitionInIndex,
    PartitionInBody,
    PartitionEnded
};

UInt64 const KEY_SIZE = 16;

// Sets and packs of all codings, in any registry.
bool isGroup(KLV::Key const & key)
{
    static unsigned char const START[] = {0x06, 0x0E, 0x2B, 0x34, 0x02};
    return std::memcmp(key.rawBuffer(), START, sizeof START) == 0;
}

// Whether a key is that of segments, or the one that they had at first.
bool isIndexTableSegment(KLV::Key const & key)
{
    static constexpr unsigned char BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x53, 0x01, 0x01,
                                              0x0D, 0x01, 0x02, 0x01, 0x01, 0x10, 0x00, 0x00};
    static constexpr KLV::Key FIRST_KEY(BYTES);
    return key == IndexTables::IndexTableSegment::key() || key == FIRST_KEY;
}

}

class Partition::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Partition const & owner, Reader & theReader, Templates::auto_ptr<Packs::PartitionPack> thePack,
         UInt64 absoluteOffset, UInt64 metadataOffset, UInt64 theSearchLimit) :
        reader(theReader),
        reader2(dynamic_cast<Reader2 *>(&theReader)),
        klvReader(theReader.klvReader()),
        source(theReader.source()),
        dictionary(theReader.dictionary()),
        pack(std::move(thePack)),
        partitionAbsoluteOffset(absoluteOffset),
        metadataAbsoluteOffset(metadataOffset),
        searchLimit(theSearchLimit),
        owner_(owner)
    {
    }

    UInt64 indexTableAbsoluteOffset() const { return saturatingSum(metadataAbsoluteOffset, pack->headerByteCount()); }
    UInt64 bodyAbsoluteOffset() const { return saturatingSum(indexTableAbsoluteOffset(), pack->indexByteCount()); }

    void loadMetadata();

    bool enterIndex();
    Templates::auto_ptr<KLV::Packet> nextSegment();

    bool bodyIsAnothers() { return areasEnd() < bodyAbsoluteOffset(); }
    void end(UInt64 nextPartition);

    Reader & reader;
    Reader2 * const reader2;
    KLV::Reader & klvReader;
    DataIO::RandomAccessDataSource & source;
    Templates::SharedPtr<MetaMetadata::Dictionary> const dictionary;
    Templates::auto_ptr<Packs::PartitionPack> const pack;
    UInt64 const partitionAbsoluteOffset;
    UInt64 const metadataAbsoluteOffset;
    UInt64 const searchLimit;

    Templates::SharedPtr<Metadata::PartitionMetadata> metadata;
    Templates::SharedPtr<PartitionListener> listener;
    State state = PartitionStart;

private:
    Templates::auto_ptr<Packs::PrimerPack> readPrimer(KLV::Reader & packets) const;
    void createMetadata(Templates::auto_ptr<Packs::PrimerPack> primer);
    void loadPackets(KLV::Reader & packets);
    void loadPacket(KLV::Packet & packet);
    UInt64 areasEnd();
    UInt64 endOf(KLV::Packet const & packet) const;

    Partition const & owner_;

    // Where metadata and index end, once that was asked for.
    std::optional<UInt64> areasEnd_;

    // Where the packet taken last from the index ends. Behind the index that
    // is no other place, from which it would begin anew.
    UInt64 packetEnd_ = 0;
};

// The metadata is read in large blocks, which end with it. What can be loaded
// stays also when something behind it can't.
void Partition::Impl::loadMetadata()
{
    source.seek(metadataAbsoluteOffset);
    BlockSource block(source, indexTableAbsoluteOffset());
    KLV::Reader packets(block);
    try
    {
        createMetadata(readPrimer(packets));
        loadPackets(packets);
    }
    catch (Exceptions::NotEnoughData const &)
    {
        VANTRY_FAIL(InvalidFormat, "Expected Primer Pack");
    }
}

Templates::auto_ptr<Packs::PrimerPack> Partition::Impl::readPrimer(KLV::Reader & packets) const
{
    UInt64 skipped = 0;
    Templates::auto_ptr<KLV::Packet> const packet = packets.nextKLV(skipped, searchLimit);
    if (packet->key() != Packs::PrimerPack::key())
        VANTRY_FAIL(InvalidFormat, "This partition (0x" + Utils::hexadecimal(partitionAbsoluteOffset) +
                                       ") does not have a primer pack at the beginning of the metadata.");

    Templates::auto_ptr<Packs::PrimerPack> primer(new Packs::PrimerPack(*packet));
    packet->value().discard();
    return primer;
}

void Partition::Impl::createMetadata(Templates::auto_ptr<Packs::PrimerPack> primer)
{
    if (listener)
        listener->primerPackLoaded(*primer);

    Templates::auto_ptr<Metadata::PartitionDictionary> partitionDictionary(
        new Metadata::PartitionDictionary(dictionary, primer));
    metadata = Templates::SharedPtr<Metadata::PartitionMetadata>(
        new Metadata::PartitionMetadata(std::move(partitionDictionary)));

    if (listener)
        listener->metadataCreated(*metadata);
}

void Partition::Impl::loadPackets(KLV::Reader & packets)
{
    UInt64 const metadataEnd = std::min(indexTableAbsoluteOffset(), areasEnd());
    while (packets.source().absoluteOffset() < metadataEnd)
    {
        UInt64 skipped = 0;
        Templates::auto_ptr<KLV::Packet> const packet = packets.nextKLV(skipped, searchLimit);
        loadPacket(*packet);
        packet->value().discard();
    }
}

void Partition::Impl::loadPacket(KLV::Packet & packet)
{
    if (!isGroup(packet.key()))
    {
        if (listener)
            listener->unknownPacketRead(packet);
        return;
    }

    try
    {
        metadata->load(packet);
    }
    catch (Exceptions::InvalidLength const &)
    {
        // One bad set doesn't lose the others.
    }
    catch (Exceptions::InvalidMetadataSet const &)
    {
        // Nor does this.
    }
}

// False when there is no more of the index ahead.
bool Partition::Impl::enterIndex()
{
    UInt64 const start = indexTableAbsoluteOffset();
    UInt64 const indexEnd = areasEnd();
    UInt64 const position = source.absoluteOffset();
    if (start >= indexEnd || (position > indexEnd && position == packetEnd_))
        return false;

    if (position < start || position > indexEnd)
    {
        source.seek(start);
        state = PartitionInIndex;
    }
    return source.absoluteOffset() < indexEnd;
}

Templates::auto_ptr<KLV::Packet> Partition::Impl::nextSegment()
{
    UInt64 skipped = 0;
    while (enterIndex())
    {
        KLV::Key const key = klvReader.peekNextKey(skipped, searchLimit);
        if (!isIndexTableSegment(key) && !KLV::isFillItem(key))
        {
            state = PartitionInBody;
            break;
        }

        Templates::auto_ptr<KLV::Packet> packet = klvReader.nextKLV(skipped, searchLimit);
        packetEnd_ = endOf(*packet);
        if (!KLV::isFillItem(key))
            return packet;
        packet->value().discard();
    }
    return Templates::auto_ptr<KLV::Packet>();
}

// What a pack says of sizes may reach over other partitions. Nothing there is
// read as this one's: with as many such packs as a file has room for, it would
// be read as many times.
UInt64 Partition::Impl::areasEnd()
{
    if (!areasEnd_)
        areasEnd_ = reader.endOf(owner_);
    return *areasEnd_;
}

// Where the source will be behind a packet just taken.
UInt64 Partition::Impl::endOf(KLV::Packet const & packet) const
{
    return source.absoluteOffset() + std::min(packet.length(), source.remaining());
}

// The source stands behind the key of the next partition, and goes back to it:
// so the end stays the end.
void Partition::Impl::end(UInt64 nextPartition)
{
    state = PartitionEnded;
    if (reader2 == nullptr)
        return;

    reader2->partitionAtOffset(nextPartition - reader2->runInSize());
    source.seek(nextPartition);
}

Partition::Partition(Reader & reader, Templates::auto_ptr<Packs::PartitionPack> partitionPack,
                     UInt64 partitionAbsoluteOffset, UInt64 metadataAbsoluteOffset, UInt64 searchLimit) :
    impl_(
        new Impl(*this, reader, std::move(partitionPack), partitionAbsoluteOffset, metadataAbsoluteOffset, searchLimit))
{
}

Partition::~Partition()
{
    delete impl_;
}

UInt64 Partition::partitionAbsoluteOffset() const
{
    return impl_->partitionAbsoluteOffset;
}

UInt64 Partition::metadataAbsoluteOffset() const
{
    return impl_->metadataAbsoluteOffset;
}

UInt64 Partition::indexTableAbsoluteOffset() const
{
    return impl_->indexTableAbsoluteOffset();
}

UInt64 Partition::bodyAbsoluteOffset() const
{
    return impl_->bodyAbsoluteOffset();
}

Packs::PartitionPack const & Partition::partitionPack() const
{
    return *impl_->pack;
}

bool Partition::partitionEnded() const
{
    return impl_->state == PartitionEnded;
}

Templates::SharedPtr<Metadata::PartitionMetadata> Partition::metadata()
{
    if (!impl_->metadata && partitionPack().headerByteCount() != 0)
        impl_->loadMetadata();
    return impl_->metadata;
}

void Partition::rewind()
{
    impl_->state = PartitionInIndex;
    impl_->source.seek(indexTableAbsoluteOffset());
}

Templates::auto_ptr<KLV::Packet> Partition::nextIndexTableSegmentsKLV()
{
    if (partitionPack().indexSID() == 0 || partitionPack().indexByteCount() == 0)
        return Templates::auto_ptr<KLV::Packet>();
    return impl_->nextSegment();
}

Templates::auto_ptr<KLV::Packet> Partition::nextBodyKLV(UInt64 searchLimit)
{
    Templates::auto_ptr<KLV::Packet> packet;
    if (partitionPack().bodySID() == 0)
        return packet;
    if (impl_->bodyIsAnothers())
    {
        impl_->state = PartitionEnded;
        return packet;
    }

    DataIO::RandomAccessDataSource & source = impl_->source;
    if (source.absoluteOffset() < bodyAbsoluteOffset())
        source.seek(bodyAbsoluteOffset());
    impl_->state = PartitionInBody;

    UInt64 skipped = 0;
    if (source.endOfStream())
        impl_->state = PartitionEnded;
    else if (Packs::isPartitionPack(impl_->klvReader.peekNextKey(skipped, searchLimit)))
        impl_->end(source.absoluteOffset() - KEY_SIZE);
    else
        packet = impl_->klvReader.nextKLV(skipped, searchLimit);
    return packet;
}

void Partition::gotoBodyRelativePosition(UInt64 position)
{
    UInt64 const bodyOffset = partitionPack().bodyOffset();
    if (position < bodyOffset)
        VANTRY_FAIL(InvalidPosition, "Trying to seek to 0x" + Utils::hexadecimal(position) + " but partition (0x" +
                                         Utils::hexadecimal(partitionPack().thisPartition()) + ") body starts at " +
                                         Utils::hexadecimal(bodyOffset));

    impl_->state = PartitionInBody;
    impl_->source.seek(saturatingSum(bodyAbsoluteOffset(), position - bodyOffset));
}

void Partition::setPartitionListener(Templates::SharedPtr<PartitionListener> listener)
{
    impl_->listener = std::move(listener);
}

}}

#include "MXFIO/ContentStorageReader.h"

#include "DataIO/RandomAccessDataSource.h"
#include "DataIO/StreamingDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidState.h"
#include "Exceptions/InvalidValue.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "MXFIO/ContainerMetadata.h"
#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/ElementReader.h"
#include "MXFIO/ElementReaderSelection.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/Partition.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/Reader2.h"
#include "MXFIO/SaturatingSum.h"
#include "MXFIO/Seeker.h"
#include "MXFIO/StreamingPartitionWalker.h"
#include "MXFIO/SystemItemKLVPacketListener.h"
#include "MXFIO/Unreadable.h"
#include "Packs/PartitionPack.h"
#include "Packs/RandomIndexPack.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

using Ratio = Templates::Rational<Int64>;
using PacketPtr = Templates::auto_ptr<KLV::Packet>;
using Profile = Templates::SharedPtr<ContentStorageProfile>;

UInt64 const SEARCH_LIMIT = 4096;
unsigned int const SYSTEM_ITEM = 4;
Ratio const UNKNOWN = -1;

// Bytes of a key and its length field.
UInt64 const LONGEST_HEAD = 25;

// Without a footer a file may still grow.
bool mayGrow(Reader & reader)
{
    auto * const reader2 = dynamic_cast<Reader2 *>(&reader);
    if (reader2 != nullptr)
        return reader2->footerPartition() == nullptr;
    return dynamic_cast<DataIO::StreamingDataSource *>(&reader.source()) != nullptr;
}

}

class ContentStorageReader::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Reader & theReader, Metadata::Structural::EssenceContainerData & container, bool loadRIP,
         bool shallComputeSize, Profile const & theProfile);

    bool rewind();
    bool moveTo(UInt64 bodyOffset, Int64 target);
    PacketPtr nextPacket(UInt64 searchLimit);
    void refresh();
    Ratio indexableUnits();

    Reader & reader;
    Reader2 * const reader2;
    ContainerMetadata metadata;
    bool const isStreaming;
    Profile profile;
    std::unique_ptr<Seeker> seeker;
    SystemItemKLVPacketListener * systemItemListener = nullptr;

    Ratio unitRate;
    Ratio duration;
    Int64 containerSize = -1;

    Int64 editUnit = 0;
    UInt64 bodyPosition = 0;
    unsigned int nextElementIndex = 0;
    bool isClipWrapped = false;

private:
    void open();
    void learn();
    void learnWhatCame();
    Partition * findFirstPartition();
    void measure();
    void measureAnyway();
    bool findFirstPacket();
    bool decideClip();
    bool indexReachesIntoFirstPacket();
    bool isWholeContainer();
    void deriveDuration();
    Ratio measuredUnits();
    bool isStillWritten(KLV::Packet const & packet) const;
    bool awaitsMore(UInt64 searchLimit) const;
    PacketPtr readInPartition(UInt64 searchLimit);
    bool enterNextPartition();
    void take(KLV::Packet const & packet);
    UInt64 bodyOffsetOf(KLV::Packet const & packet) const;

    DataIO::RandomAccessDataSource & source_;
    DataIO::StreamingDataSource * const growing_;
    bool const computeSize_;
    std::unique_ptr<StreamingPartitionWalker> walker_;

    Partition * first_ = nullptr;
    Partition * current_ = nullptr;
    UInt64 nextPacketOffset_ = 0;
    UInt64 firstPacketEnd_ = 0;
    std::optional<KLV::Key> firstKey_;
    bool isAtEnd_ = false;
    bool areElementsKnown_ = false;
};

ContentStorageReader::Impl::Impl(Reader & theReader, Metadata::Structural::EssenceContainerData & container,
                                 bool loadRIP, bool shallComputeSize, Profile const & theProfile) :
    reader(theReader),
    reader2(dynamic_cast<Reader2 *>(&theReader)),
    metadata(container),
    isStreaming(mayGrow(theReader)),
    profile(theProfile),
    source_(theReader.source()),
    growing_(dynamic_cast<DataIO::StreamingDataSource *>(&source_)),
    computeSize_(shallComputeSize)
{
    if (loadRIP && !isStreaming && !reader.rip())
        reader.loadRIP();
    seeker = std::make_unique<Seeker>(reader, metadata.bodySID(), metadata.indexSID(), isStreaming, profile);
    metadata.takeTracks(seeker->indexEditRate());
    unitRate = metadata.editRate();
    open();
}

void ContentStorageReader::Impl::open()
{
    learn();
    if (isStreaming && reader2 != nullptr)
        walker_ = std::make_unique<StreamingPartitionWalker>(*reader2, metadata.bodySID());

    deriveDuration();
    seeker->setExtent(containerSize, duration);
    rewind();
}

// Learns from the first packets how the container goes on. The position is
// lost.
void ContentStorageReader::Impl::learn()
{
    if (!rewind())
        return;

    measure();
    if (!findFirstPacket())
        return;
    isClipWrapped = decideClip();
    areElementsKnown_ = seeker->learnElements(*first_, SEARCH_LIMIT, isClipWrapped);
}

// In a file that grows the first edit unit may have come bit by bit.
void ContentStorageReader::Impl::learnWhatCame()
{
    if (firstKey_)
        areElementsKnown_ = seeker->learnElements(*first_, SEARCH_LIMIT, isClipWrapped);
    else
    {
        learn();
        rewind();
    }
}

// Goes to the start of the container; false when it has no partition.
bool ContentStorageReader::Impl::rewind()
{
    if (first_ == nullptr)
        first_ = findFirstPartition();

    current_ = first_;
    isAtEnd_ = current_ == nullptr;
    editUnit = 0;
    nextElementIndex = 0;
    bodyPosition = 0;
    if (current_ != nullptr)
        current_->rewind();
    nextPacketOffset_ = source_.absoluteOffset();
    return current_ != nullptr;
}

Partition * ContentStorageReader::Impl::findFirstPartition()
{
    Partition * const header = reader.headerPartition();
    if (header == nullptr || header->partitionPack().bodySID() == metadata.bodySID())
        return header;
    return reader.nextPartition(header, metadata.bodySID());
}

// Measures the container where that is wanted or costs little. The size of
// one that may have grown is of no use any more.
void ContentStorageReader::Impl::measure()
{
    bool const hasFooter = reader2 != nullptr && !isStreaming;
    bool const isWanted = containerSize < 0 ? computeSize_ : isStreaming;
    if (isWanted || (hasFooter && seeker->editUnitByteCount() != 0))
        measureAnyway();
}

// What can't be measured stays unknown.
void ContentStorageReader::Impl::measureAnyway()
{
    PositionKeeper const keeper(source_);
    std::optional<UInt64> const size = nothingIfUnreadable(
        [&]() -> std::optional<UInt64>
        {
            return reader2 != nullptr ? MXFIO::containerSize(*reader2, metadata.bodySID())
                                      : MXFIO::containerSize(reader, metadata.bodySID());
        });
    if (size)
        containerSize = static_cast<Int64>(std::min<UInt64>(*size, std::numeric_limits<Int64>::max()));
}

// Notes the key that each edit unit starts with, and goes back to where it is.
bool ContentStorageReader::Impl::findFirstPacket()
{
    PacketPtr packet;
    do
        packet = nextPacket(SEARCH_LIMIT);
    while (packet && KLV::isFillItem(packet->key()));
    if (!packet)
        return false;

    // Partitions ahead of it have none of the container.
    first_ = current_;
    firstKey_ = packet->key();
    firstPacketEnd_ = bodyPosition;
    return true;
}

bool ContentStorageReader::Impl::decideClip()
{
    bool isClip = false;
    if (profile && profile->isClipWrapped(&isClip) == KNOWLEDGE_KNOWN)
        return isClip;

    // Some makers have clips under the label of frames.
    ContainerMetadata::Wrapping const wrapping = metadata.wrapping();
    bool const isDoubtful = wrapping == ContainerMetadata::NOT_TOLD || indexReachesIntoFirstPacket();
    return wrapping == ContainerMetadata::IS_CLIP || (isDoubtful && isWholeContainer());
}

// Whether the second edit unit starts ahead of the end of the first packet.
bool ContentStorageReader::Impl::indexReachesIntoFirstPacket()
{
    UInt64 second = 0;
    return seeker->hasIndex() && seeker->bodyOffsetOf(1, second) && second < firstPacketEnd_;
}

// Whether the first packet, with fill items that adjoin it, is all that the
// container has. One that is cut off is if the index says so.
bool ContentStorageReader::Impl::isWholeContainer()
{
    rewind();
    UInt64 size = 0;
    unsigned int packets = 0;
    bool isCut = false;
    while (PacketPtr const packet = readInPartition(SEARCH_LIMIT))
    {
        if (!KLV::isFillItem(packet->key()) && ++packets > 1)
            return false;
        size = saturatingSum(size, packet->klvLength());
        isCut = packet->length() > source_.remaining();
        packet->value().discard();
    }

    if (isCut)
        return indexReachesIntoFirstPacket();
    if (containerSize < 0)
        measureAnyway();
    return containerSize >= 0 && size == static_cast<UInt64>(containerSize);
}

// Finds the number of edit units.
void ContentStorageReader::Impl::deriveDuration()
{
    duration = metadata.duration();
    Int64 known = 0;
    if (profile && profile->duration(&known) == KNOWLEDGE_KNOWN)
        duration = known;
    if (walker_ && (duration < 0 || duration < indexableUnits()))
        duration = indexableUnits();
    if (duration < 0)
        duration = measuredUnits();
}

// By the end of the index, or by the bytes that there are.
Ratio ContentStorageReader::Impl::measuredUnits()
{
    Int64 const end = seeker->endOfIndex();
    unsigned int const byteCount = seeker->editUnitByteCount();
    if (end > 0)
        return end;
    if (byteCount == 0)
        return UNKNOWN;

    if (containerSize < 0)
        measureAnyway();
    return containerSize < 0 ? UNKNOWN : Ratio(containerSize / byteCount);
}

// How far index or bytes reach by now.
Ratio ContentStorageReader::Impl::indexableUnits()
{
    unsigned int const byteCount = seeker->editUnitByteCount();
    if (walker_ && byteCount != 0)
        return static_cast<Int64>(walker_->byteCount() / byteCount);
    return seeker->endOfIndex();
}

void ContentStorageReader::Impl::refresh()
{
    PositionKeeper const keeper(source_);
    if (walker_)
        walker_->refresh();
    else if (growing_ != nullptr)
        growing_->refresh();

    seeker->refresh();
    if (growing_ != nullptr && !areElementsKnown_)
        learnWhatCame();
    measure();
    Ratio const before = duration;
    deriveDuration();
    duration = std::max(duration, before);
    isAtEnd_ = isAtEnd_ && current_ == nullptr;
}

// Goes to where an edit unit is, as far as its place is known.
bool ContentStorageReader::Impl::moveTo(UInt64 bodyOffset, Int64 target)
{
    if (bodyOffset == 0)
    {
        rewind();
        return true;
    }

    // The look at the index may have seen more of the file than its reader.
    if (walker_)
        walker_->catchUp();
    Partition * const partition = seeker->partitionContaining(bodyOffset, target);
    if (partition == nullptr)
        return false;
    partition->gotoBodyRelativePosition(bodyOffset);
    current_ = partition;
    isAtEnd_ = false;
    editUnit = target;
    nextElementIndex = 0;
    bodyPosition = bodyOffset;
    nextPacketOffset_ = source_.absoluteOffset();
    return true;
}

PacketPtr ContentStorageReader::Impl::nextPacket(UInt64 searchLimit)
{
    while (!isAtEnd_)
    {
        UInt64 const start = nextPacketOffset_;
        PacketPtr packet = readInPartition(searchLimit);
        if (packet && !isStillWritten(*packet))
        {
            take(*packet);
            return packet;
        }
        if (packet || awaitsMore(searchLimit))
        {
            nextPacketOffset_ = start;
            break;
        }
        isAtEnd_ = !enterNextPartition();
    }
    return PacketPtr();
}

// Whether a packet at the end is yet to come whole.
bool ContentStorageReader::Impl::isStillWritten(KLV::Packet const & packet) const
{
    return growing_ != nullptr && packet.length() > source_.remaining();
}

// Whether what follows is too little to tell packets from the end of the body.
bool ContentStorageReader::Impl::awaitsMore(UInt64 searchLimit) const
{
    UInt64 const end = source_.absoluteOffset() + source_.remaining();
    return growing_ != nullptr && !(current_->partitionEnded() && !source_.endOfStream()) &&
           end - std::min(end, nextPacketOffset_) < saturatingSum(searchLimit, LONGEST_HEAD);
}

// Null where the body ends or can't be read.
PacketPtr ContentStorageReader::Impl::readInPartition(UInt64 searchLimit)
{
    if (source_.absoluteOffset() != nextPacketOffset_)
        source_.seek(nextPacketOffset_);

    PacketPtr packet = nothingIfUnreadable([&] { return current_->nextBodyKLV(searchLimit); });
    if (packet)
        nextPacketOffset_ = source_.absoluteOffset() + std::min(packet->length(), source_.remaining());
    return packet;
}

bool ContentStorageReader::Impl::enterNextPartition()
{
    Partition * const next = nothingIfUnreadable([&] { return reader.nextPartition(current_, metadata.bodySID()); });
    if (next == nullptr || next->partitionAbsoluteOffset() <= current_->partitionAbsoluteOffset())
        return false;

    current_ = next;
    current_->rewind();
    nextPacketOffset_ = source_.absoluteOffset();
    return true;
}

// Counts a packet.
void ContentStorageReader::Impl::take(KLV::Packet const & packet)
{
    bodyPosition = saturatingSum(bodyOffsetOf(packet), packet.klvLength());
    if (!firstKey_)
        return;

    if (packet.key() == *firstKey_)
        seeker->reached(++editUnit, bodyPosition);
    seeker->passElement(key2TrackNumber(packet.key()), nextElementIndex);
}

UInt64 ContentStorageReader::Impl::bodyOffsetOf(KLV::Packet const & packet) const
{
    return saturatingSum(current_->partitionPack().bodyOffset(),
                         packet.keyAbsoluteOffset() - current_->bodyAbsoluteOffset());
}

ContentStorageReader::ContentStorageReader(Reader & reader, Metadata::Structural::EssenceContainerData & container,
                                           bool loadRIP, bool computeSize, Profile const & profile) :
    impl_(new Impl(reader, container, loadRIP, computeSize, profile))
{
}

ContentStorageReader::~ContentStorageReader()
{
    delete impl_;
}

unsigned int ContentStorageReader::bodySID() const
{
    return impl_->metadata.bodySID();
}

unsigned int ContentStorageReader::indexSID() const
{
    return impl_->metadata.indexSID();
}

Ratio ContentStorageReader::editRate() const
{
    bool const isOneClip = impl_->isClipWrapped && impl_->duration > 0 && impl_->unitRate > 0;
    return isOneClip ? impl_->unitRate / impl_->duration : impl_->unitRate;
}

Ratio ContentStorageReader::duration() const
{
    return impl_->isClipWrapped && impl_->duration > 0 ? Ratio(1) : impl_->duration;
}

Ratio ContentStorageReader::indexableDuration()
{
    Ratio const units = impl_->indexableUnits();
    if (units < 0)
        return duration();
    return impl_->isClipWrapped && units > 0 ? Ratio(1) : units;
}

Int64 ContentStorageReader::editUnit() const
{
    return impl_->editUnit;
}

unsigned int ContentStorageReader::nextElementIndex() const
{
    return impl_->nextElementIndex;
}

unsigned int ContentStorageReader::editUnitByteCount() const
{
    return impl_->seeker->editUnitByteCount();
}

Int64 ContentStorageReader::containerSize() const
{
    return impl_->containerSize;
}

UInt64 ContentStorageReader::bodyPosition() const
{
    return impl_->bodyPosition;
}

bool ContentStorageReader::isClipWrapped() const
{
    return impl_->isClipWrapped;
}

Ratio ContentStorageReader::unitRate() const
{
    return impl_->unitRate;
}

Ratio ContentStorageReader::storedUnits() const
{
    return impl_->duration < 0 ? UNKNOWN : impl_->duration + impl_->metadata.origin();
}

bool ContentStorageReader::temporalReordering() const
{
    return impl_->seeker->temporalReorderingTrack() != 0;
}

bool ContentStorageReader::isSeekExact()
{
    return impl_->seeker->hasIndex();
}

bool ContentStorageReader::isStreaming() const
{
    return impl_->isStreaming;
}

bool ContentStorageReader::seek(Int64 editUnit)
{
    if (editUnit < 0)
        return false;

    // What is stored ahead of the start of the tracks can be reached as well.
    Ratio const units = impl_->isClipWrapped ? duration() : storedUnits();
    if (impl_->duration > 0 && units <= editUnit)
        return false;
    if (impl_->isClipWrapped)
    {
        impl_->rewind();
        return true;
    }

    UInt64 bodyOffset = 0;
    return impl_->seeker->bodyOffsetOf(editUnit, bodyOffset) && impl_->moveTo(bodyOffset, editUnit);
}

bool ContentStorageReader::fineSeek(Int64 editUnit, unsigned int trackNumber)
{
    UInt64 start = 0;
    UInt64 bodyOffset = 0;
    Seeker & seeker = *impl_->seeker;
    if (editUnit < 0 || !seeker.elementOffsetOf(editUnit, trackNumber, bodyOffset) ||
        !seeker.bodyOffsetOf(editUnit, start) || !impl_->moveTo(bodyOffset, editUnit))
        return false;

    // Behind the packet that starts it the edit unit has been entered. That
    // packet need not be of an element.
    if (bodyOffset > start)
    {
        ++impl_->editUnit;
        seeker.elementIndex(trackNumber, impl_->nextElementIndex);
    }
    return true;
}

PacketPtr ContentStorageReader::nextKLV(UInt64 searchLimit)
{
    return impl_->nextPacket(searchLimit);
}

void ContentStorageReader::discardKLVPacket(PacketPtr packet)
{
    if (!packet)
        return;
    if (impl_->systemItemListener != nullptr && key2TrackNumber(packet->key()) >> 24 == SYSTEM_ITEM)
        impl_->systemItemListener->systemItemPacketRead(std::move(packet));
    else
        packet->value().discard();
}

void ContentStorageReader::registerKLVPacketListener(SystemItemKLVPacketListener * listener)
{
    VANTRY_CHECK_TEXT(impl_->systemItemListener == nullptr, "impl_ -> systemItemListener_ == 0", InvalidState,
                      "Only one SystemItemKLVPacketListener can be registered.");
    impl_->systemItemListener = listener;
}

void ContentStorageReader::unregisterKLVPacketListener()
{
    impl_->systemItemListener = nullptr;
}

void ContentStorageReader::setContentStorageProfile(Profile const & profile)
{
    impl_->profile = profile;
    impl_->seeker->setContentStorageProfile(profile);
}

void ContentStorageReader::refreshSource()
{
    impl_->refresh();
}

Templates::vector<unsigned int> ContentStorageReader::elements() const
{
    return impl_->seeker->elements();
}

unsigned int ContentStorageReader::trackNumber2TrackID(unsigned int trackNumber) const
{
    return impl_->metadata.trackID(trackNumber);
}

Templates::auto_ptr<ElementReader> ContentStorageReader::elementReader(unsigned int trackID, Int64 startPosition,
                                                                       Int64 duration, Types::Rational const & editRate,
                                                                       bool emulateFrameWrapping)
{
    return ElementReaderSelection(*this, impl_->metadata.package(), impl_->profile)
        .make(trackID, {startPosition, duration, editRate, emulateFrameWrapping});
}

Reader & ContentStorageReader::reader()
{
    return impl_->reader;
}

Seeker & ContentStorageReader::seeker()
{
    return *impl_->seeker;
}

}}

#include "MXFIO/Reader.h"

#include "DataIO/Memory/MemoryDataSource.h"
#include "DataIO/RandomAccessDataSource.h"
#include "DataIO/StreamingDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "MXFIO/Partition.h"
#include "MXFIO/PartitionPackSearch.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/SaturatingSum.h"
#include "MXFIO/Unreadable.h"
#include "MetaMetadata/Dictionary.h"
#include "Packs/PartitionPack.h"
#include "Packs/RandomIndexPack.h"
#include "Platform/BigEndian.h"
#include "Templates/Containers.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

// Key, the shortest length field and the length at the end.
UInt32 const SMALLEST_RIP = 21;
UInt64 const RIP_LENGTH_SIZE = 4;

// What is read of the end of a file at once: most random index packs.
UInt64 const TAIL_SIZE = 4096;

UInt64 sizeOf(DataIO::RandomAccessDataSource & source)
{
    source.seek(0);
    return source.remaining();
}

// The length of the last pack in the file, which is the last field in it.
UInt32 lastPackLength(DataIO::RandomAccessDataSource & source, UInt64 size)
{
    unsigned char tail[TAIL_SIZE];
    UInt64 const tailSize = std::min(size, TAIL_SIZE);
    source.seek(size - tailSize);
    KLV::Value(source, tailSize).readValue(tail, tailSize);
    return Platform::readBigEndian<UInt32>(tail + tailSize - RIP_LENGTH_SIZE);
}

Templates::auto_ptr<Packs::RandomIndexPack> readRIP(DataIO::RandomAccessDataSource & source)
{
    UInt64 const size = sizeOf(source);
    if (size < RIP_LENGTH_SIZE)
        return Templates::auto_ptr<Packs::RandomIndexPack>();

    UInt32 const length = lastPackLength(source, size);
    if (length >= size || length < SMALLEST_RIP)
        return Templates::auto_ptr<Packs::RandomIndexPack>();

    source.seek(size - length);
    KLV::Reader packets(source);
    UInt64 skipped = 0;
    Templates::auto_ptr<KLV::Packet> const packet = packets.nextKLV(skipped, 0);
    return Templates::auto_ptr<Packs::RandomIndexPack>(new Packs::RandomIndexPack(*packet));
}

auto hasBody(unsigned int bodySID)
{
    return [bodySID](Packs::PartitionPack const & pack)
    {
        return pack.bodySID() == bodySID;
    };
}

auto hasIndex(unsigned int indexSID)
{
    return [indexSID](Packs::PartitionPack const & pack)
    {
        return pack.indexSID() == indexSID;
    };
}

}

class Reader::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Reader & theOwner, DataIO::RandomAccessDataSource & theSource,
         Templates::SharedPtr<MetaMetadata::Dictionary> theDictionary, UInt64 theSearchLimit) :
        source(theSource),
        klvReader(theSource),
        dictionary(std::move(theDictionary)),
        searchLimit(theSearchLimit),
        owner_(theOwner),
        isGrowing_(dynamic_cast<DataIO::StreamingDataSource *>(&theSource) != nullptr)
    {
    }

    /// A partition that is known and the one that a walk found behind it.
    struct Place
    {
        std::unique_ptr<Partition> partition;
        Partition * next = nullptr;
    };
    using Places = Templates::map<UInt64, Place>;

    // Goes on from a partition until the pack of another passes the test.
    template <class Test>
    Partition * forward(Partition * current, Test const & test);
    template <class Test>
    Partition * backward(Partition * current, Test const & test);

    Partition * enter(KLV::Packet & packet, UInt64 limit);
    Places::iterator placeOf(Partition const & partition);
    Partition * knownNext(Places::const_iterator place) const;
    void setRunIn(UInt64 size);
    void readRunIn();

    bool hasPackAt(UInt64 position);
    UInt64 behindByRIP(Partition const & partition) const;
    bool seekByRIP(Partition const & partition);
    UInt64 endOf(Partition const & partition);

    DataIO::RandomAccessDataSource & source;
    KLV::Reader klvReader;
    Templates::SharedPtr<MetaMetadata::Dictionary> const dictionary;
    UInt64 const searchLimit;

    Places places;
    Templates::SharedPtr<Packs::RandomIndexPack> rip;

    UInt64 runInSize = 0;
    std::unique_ptr<DataIO::Memory::MemoryDataSource> runInSource;
    std::unique_ptr<KLV::Value> runIn;

private:
    UInt64 passFillItem(UInt64 limit, Packs::PartitionPack const & pack);

    Reader & owner_;
    bool const isGrowing_;
};

template <class Test>
Partition * Reader::Impl::forward(Partition * current, Test const & test)
{
    do
        current = owner_.nextPartition(current);
    while (current != nullptr && !test(current->partitionPack()));
    return current;
}

template <class Test>
Partition * Reader::Impl::backward(Partition * current, Test const & test)
{
    do
        current = owner_.previousPartition(current);
    while (current != nullptr && !test(current->partitionPack()));
    return current;
}

// Takes a partition up that starts with this packet.
Partition * Reader::Impl::enter(KLV::Packet & packet, UInt64 limit)
{
    UInt64 const offset = packet.keyAbsoluteOffset();
    Templates::auto_ptr<Packs::PartitionPack> pack(new Packs::PartitionPack(packet));
    packet.value().discard();
    UInt64 const metadataOffset = passFillItem(limit, *pack);

    auto const known = places.find(offset);
    if (known != places.end())
        return known->second.partition.get();

    auto partition = std::make_unique<Partition>(owner_, std::move(pack), offset, metadataOffset, searchLimit);
    return (places[offset].partition = std::move(partition)).get();
}

// The position behind one fill item that may be next. In a file that is still
// written it may be on its way: what the partition holds has no place until
// that is known.
UInt64 Reader::Impl::passFillItem(UInt64 limit, Packs::PartitionPack const & pack)
{
    bool const holdsAny = pack.headerByteCount() != 0 || pack.indexByteCount() != 0 || pack.bodySID() != 0;
    UInt64 const position = source.absoluteOffset();
    try
    {
        UInt64 skipped = 0;
        if (!KLV::isFillItem(klvReader.peekNextKey(skipped, limit)))
            return position;
        Templates::auto_ptr<KLV::Packet> const item = klvReader.nextKLV(skipped, limit);
        item->value().discard();
        UInt64 const end = source.absoluteOffset();
        if (isGrowing_ && end < saturatingSum(item->keyAbsoluteOffset(), item->klvLength()))
            VANTRY_FAIL(NotEnoughData, "Not enough data");
        return end;
    }
    catch (Exceptions::NotEnoughData const &)
    {
        if (isGrowing_ && holdsAny)
            throw;
        return position;
    }
    catch (Exceptions::KeyNotFound const &)
    {
        return position;
    }
}

// Where the partition stands in the map; it is read anew if it is none of ours.
Reader::Impl::Places::iterator Reader::Impl::placeOf(Partition const & partition)
{
    UInt64 const offset = partition.partitionAbsoluteOffset();
    auto const place = places.find(offset);
    if (place != places.end())
        return place;

    UInt64 bytesConsumed = 0;
    bool essenceSeen = false;
    source.seek(offset);
    owner_.readPartition(0, true, bytesConsumed, essenceSeen);
    return places.find(offset);
}

// The partition that is known to follow. The neighbour in the map isn't if it
// names another predecessor: others may lie between, unless a walk saw none.
Partition * Reader::Impl::knownNext(Places::const_iterator place) const
{
    auto const neighbour = std::next(place);
    if (neighbour == places.end())
        return nullptr;

    Partition * const partition = neighbour->second.partition.get();
    UInt64 const previous = saturatingSum(partition->partitionPack().previousPartition(), runInSize);
    return previous == place->first ? partition : place->second.next;
}

void Reader::Impl::setRunIn(UInt64 size)
{
    runInSize = size;
    if (size != 0)
        source.seek(size);
}

void Reader::Impl::readRunIn()
{
    UInt64 const position = source.absoluteOffset();
    source.seek(0);
    Templates::vector<unsigned char> bytes(runInSize);
    KLV::Value(source, runInSize).readValue(bytes.data(), bytes.size());
    runInSource = std::make_unique<DataIO::Memory::MemoryDataSource>(bytes.data(), bytes.size());
    runIn = std::make_unique<KLV::Value>(*runInSource, runInSize);
    source.seek(position);
}

// Whether a partition pack is exactly there. The source is left behind its
// key, and the walk goes on with it.
bool Reader::Impl::hasPackAt(UInt64 position)
{
    UInt64 skipped = 0;
    return nothingIfUnreadable(
        [&]
        {
            source.seek(position);
            return Packs::isPartitionPack(klvReader.peekNextKey(skipped, 0));
        });
}

// Where the entry that follows the partition's leads, 0 if nowhere behind it.
UInt64 Reader::Impl::behindByRIP(Partition const & partition) const
{
    if (!rip)
        return 0;

    auto const & entries = rip->offsetIndexedMap();
    auto entry = entries.find(partition.partitionPack().thisPartition());
    if (entry == entries.end() || ++entry == entries.end())
        return 0;

    UInt64 const target = saturatingSum(entry->first, runInSize);
    return target > partition.partitionAbsoluteOffset() ? target : 0;
}

// Goes to the next entry, if it leads on to a pack. A random index pack may be
// wrong in many ways, and none must lose a partition or lead back to one that
// was passed.
bool Reader::Impl::seekByRIP(Partition const & partition)
{
    UInt64 const target = behindByRIP(partition);
    return target != 0 && hasPackAt(target);
}

UInt64 Reader::Impl::endOf(Partition const & partition)
{
    UInt64 end = partition.bodyAbsoluteOffset();
    auto const behind = places.upper_bound(partition.partitionAbsoluteOffset());
    if (behind != places.end())
        end = std::min(end, behind->first);

    UInt64 const target = behindByRIP(partition);
    if (target == 0 || target >= end)
        return end;

    PositionKeeper const keeper(source);
    return hasPackAt(target) ? target : end;
}

Reader::Reader(DataIO::RandomAccessDataSource & source, Templates::SharedPtr<MetaMetadata::Dictionary> dictionary,
               UInt64 searchLimit) :
    impl_(new Impl(*this, source, std::move(dictionary), searchLimit))
{
}

Reader::~Reader()
{
    delete impl_;
}

KLV::Reader & Reader::klvReader()
{
    return impl_->klvReader;
}

DataIO::RandomAccessDataSource & Reader::source()
{
    return impl_->source;
}

Templates::SharedPtr<MetaMetadata::Dictionary> const & Reader::dictionary() const
{
    return impl_->dictionary;
}

Templates::SharedPtr<Packs::RandomIndexPack const> Reader::rip() const
{
    return impl_->rip;
}

KLV::Value * Reader::runIn()
{
    if (impl_->runInSize == 0)
        return nullptr;

    if (!impl_->runIn)
        impl_->readRunIn();
    impl_->runInSource->seek(0);
    return impl_->runIn.get();
}

UInt64 Reader::runInSize() const
{
    return impl_->runInSize;
}

Partition * Reader::headerPartition()
{
    if (Partition * const known = find(impl_->runInSize))
        return known;

    UInt64 bytesConsumed = 0;
    bool essenceSeen = false;
    impl_->source.seek(0);
    Partition * const header = readPartition(impl_->searchLimit, false, bytesConsumed, essenceSeen);
    if (header != nullptr)
        impl_->setRunIn(header->partitionAbsoluteOffset());
    return header;
}

Partition * Reader::nextPartition(Partition * current)
{
    VANTRY_CHECK_TEXT(current != nullptr, "current != 0", InvalidValue,
                      "Unexpected NULL pointer received on nextPartition call.");
    if (current->partitionPack().partitionKind() == Packs::PartitionPack::FOOTER_PARTITION)
        return nullptr;

    auto const place = impl_->placeOf(*current);
    bool const isOurs = place != impl_->places.end();
    if (Partition * const known = isOurs ? impl_->knownNext(place) : nullptr)
        return known;

    UInt64 bytesConsumed = 0;
    bool essenceSeen = false;
    positionSource(current);
    Partition * const next = readPartition(impl_->searchLimit, true, bytesConsumed, essenceSeen);
    VANTRY_CHECK_TEXT(
        next == nullptr || next->partitionPack().previousPartition() <= current->partitionPack().thisPartition(),
        "next == 0 || next -> partitionPack ().previousPartition () <= current -> partitionPack ().thisPartition ()",
        InvalidFormat, "The Partition Pack has an invalid PreviousPartition value");
    if (isOurs)
        place->second.next = next;
    return next;
}

Partition * Reader::nextPartition(Partition * current, unsigned int bodySID)
{
    return impl_->forward(current, hasBody(bodySID));
}

Partition * Reader::nextIndexPartition(Partition * current, unsigned int indexSID)
{
    return impl_->forward(current, hasIndex(indexSID));
}

Partition * Reader::previousPartition(Partition * current)
{
    if (current == nullptr || current->partitionPack().partitionKind() == Packs::PartitionPack::HEADER_PARTITION)
        return nullptr;

    UInt64 const offset = current->partitionPack().previousPartition();
    auto const known = impl_->places.find(saturatingSum(offset, impl_->runInSize));
    if (known != impl_->places.end() && known->first < current->partitionAbsoluteOffset())
        return known->second.partition.get();

    // The run-in isn't counted here: the search passes over as many bytes.
    UInt64 bytesConsumed = 0;
    bool essenceSeen = false;
    impl_->source.seek(offset);
    Partition * const previous = readPartition(impl_->searchLimit, false, bytesConsumed, essenceSeen);
    VANTRY_CHECK_TEXT(previous != current && previous != nullptr, "previous != current && previous != 0", InvalidFormat,
                      "A Partition has an invalid PreviousPartition value");
    VANTRY_CHECK_TEXT(
        previous->partitionPack().thisPartition() < current->partitionPack().thisPartition() &&
            previous->partitionAbsoluteOffset() < current->partitionAbsoluteOffset(),
        "previous -> partitionPack ().thisPartition () < current -> partitionPack ().thisPartition ()", InvalidFormat,
        "Partitions have inconsistent ThisPartition values");
    return previous;
}

Partition * Reader::previousPartition(Partition * current, unsigned int bodySID)
{
    return impl_->backward(current, hasBody(bodySID));
}

Partition * Reader::previousIndexPartition(Partition * current, unsigned int indexSID)
{
    return impl_->backward(current, hasIndex(indexSID));
}

Partition * Reader::nextCompletePartition(Partition * current)
{
    return impl_->forward(current, [](Packs::PartitionPack const & pack) { return pack.isComplete(); });
}

Partition * Reader::nextClosedPartition(Partition * current)
{
    return impl_->forward(current, [](Packs::PartitionPack const & pack) { return !pack.isOpen(); });
}

Partition * Reader::firstPartitionWithFinalMetadata()
{
    Partition * const header = headerPartition();
    VANTRY_CHECK_TEXT(header != nullptr, "header != 0", InvalidFormat, "No header partition found");

    Partition * lastOpen = header;
    for (Partition * partition = header; partition != nullptr; partition = nextPartition(partition))
    {
        Packs::PartitionPack const & pack = partition->partitionPack();
        if (pack.headerByteCount() == 0)
            continue;
        if (!pack.isOpen())
            return partition;
        lastOpen = partition;
    }
    return lastOpen;
}

Partition * Reader::lastLoadedPartition()
{
    return impl_->places.empty() ? nullptr : impl_->places.rbegin()->second.partition.get();
}

bool Reader::loadRIP()
{
    Templates::auto_ptr<Packs::RandomIndexPack> rip = nothingIfUnreadable([this] { return readRIP(impl_->source); });
    if (!rip)
        return false;
    impl_->rip = Templates::SharedPtr<Packs::RandomIndexPack>(rip);
    return true;
}

bool Reader::loadRIP(Templates::auto_ptr<Packs::RandomIndexPack> rip)
{
    if (impl_->rip)
        return false;
    impl_->rip = Templates::SharedPtr<Packs::RandomIndexPack>(rip);
    return true;
}

Partition * Reader::find(UInt64 absoluteOffset)
{
    auto const behind = impl_->places.upper_bound(absoluteOffset);
    return behind == impl_->places.begin() ? nullptr : std::prev(behind)->second.partition.get();
}

void Reader::positionSource(Partition * partition)
{
    if (impl_->seekByRIP(*partition))
        return;

    // A body that was read to its end leaves the source at the key of the next
    // pack, or behind it.
    DataIO::RandomAccessDataSource & source = impl_->source;
    UInt64 const body = partition->bodyAbsoluteOffset();
    UInt64 const position = source.absoluteOffset();
    if (!partition->partitionEnded() || position <= body || !impl_->hasPackAt(position))
        source.seek(body);
}

Partition * Reader::readPartition(UInt64 limit, bool fixedLimit, UInt64 & bytesConsumed, bool & essenceSeen)
{
    PartitionPackSearch search(impl_->klvReader, limit, fixedLimit);
    Partition * const partition = nothingIfUnreadable(
        [&]() -> Partition *
        {
            Templates::auto_ptr<KLV::Packet> const packet = search.run();
            return packet ? impl_->enter(*packet, search.limit()) : nullptr;
        });

    bytesConsumed = search.bytesConsumed();
    essenceSeen = essenceSeen || search.essenceSeen();
    return partition;
}

UInt64 Reader::endOf(Partition const & partition)
{
    return impl_->endOf(partition);
}

}}

#include "GenericContainer/BaseWorkerImpl.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidState.h"
#include "GenericContainer/AnalyzerKind.h"
#include "GenericContainer/DefaultIndexTableGenerator.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/PackageTracks.h"
#include "KLV/FillItem.h"
#include "MXFIO/FutureUpdater.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Utils/Fill.h"

#include <algorithm>

namespace Vantry { namespace GenericContainer {

namespace {

// An element of a content package has a length field of four bytes.
unsigned char const ELEMENT_LENGTH_SIZE = 4;

// Durations of sound are rounded to whole samples: what starts in the last
// hundredth of a content package belongs to the next.
int const PARTS_OF_PACKAGE = 100;

Templates::Rational<int> longestPreCharge(Templates::list<AnalyzerEntry> const & entries)
{
    Templates::Rational<int> longest;
    for (AnalyzerEntry const & entry : entries)
        longest = std::max(longest, entry.analyzer->getPreChargeDuration());
    return longest;
}

}

BaseWorkerImpl::BaseWorkerImpl(ContainerData const & data, IndexSegmentInfo::ContentWrapKind wrapKind,
                               unsigned int klLength) :
    wrapKind_(wrapKind),
    klLength_(klLength),
    data_(data),
    preCharge_(longestPreCharge(data_.analyzers)),
    reader_(data_.packageRate, preCharge_, data_.multiplexAllEssence),
    timecode_(data_.partitionMetadata, data_.sourcePackage, data_.packageRate, data_.timecode),
    containerGenerator_(nullptr),
    done_(data_.analyzers.empty()),
    editUnits_(0),
    streamOffset_(0),
    sliceOffset_(0),
    lastItemSliceOffset_(0)
{
    for (AnalyzerEntry & entry : data_.analyzers)
        if (entry.raw)
            entry.analyzer->setPreChargeDuration(preCharge_);
    timecode_.precharge(preCharge_);
    BaseWorkerImpl::indexTableGenerator(
        Templates::auto_ptr<MXFIO::IndexTableGenerator>(new DefaultIndexTableGenerator));
}

BaseWorkerImpl::~BaseWorkerImpl() = default;

bool BaseWorkerImpl::next(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<MXFIO::FutureUpdater> & updater,
                          Templates::Rational<Int64> & duration)
{
    if (cache_.empty())
        doNextContentPackage(cache_, cachedDuration_);

    duration = cachedDuration_;
    chain.push_back(cache_);
    cachedDuration_ = 0;
    complete = true;
    updater.reset();
    return !done_;
}

bool BaseWorkerImpl::done() const
{
    if (done_)
        return true;

    auto const isDone = [](AnalyzerEntry const & entry)
    {
        return entry.analyzer->done();
    };
    auto const isDoneOrRaw = [](AnalyzerEntry const & entry)
    {
        return entry.raw || entry.analyzer->done();
    };
    Entries const & entries = data_.analyzers;
    done_ = data_.multiplexAllEssence ? std::all_of(entries.begin(), entries.end(), isDoneOrRaw)
                                      : std::any_of(entries.begin(), entries.end(), isDone);
    return done_;
}

unsigned int BaseWorkerImpl::kagSize() const
{
    return data_.kagSize;
}

void BaseWorkerImpl::finalize()
{
    for (AnalyzerEntry & entry : data_.analyzers)
        finalize(entry);

    Int64 const duration = data_.sourcePackage != nullptr ? smallestDuration(*data_.sourcePackage) : -1;
    if (duration != -1)
    {
        setDuration(*data_.sourcePackage, duration, !timecode_.constantTimecode());
        return;
    }
    timecode_.updateTimecodeComponent();
    timecode_.updateTimecodeSequenceDuration();
}

void BaseWorkerImpl::finalize(AnalyzerEntry & entry)
{
    if (!entry.finalized)
        entry.analyzer->finalize();
    entry.finalized = true;
}

Metadata::Structural::SourcePackage & BaseWorkerImpl::sourcePackage()
{
    VANTRY_CHECK(data_.sourcePackage != nullptr, InvalidState, "The container has no source package");
    return *data_.sourcePackage;
}

Types::UniversalLabel const & BaseWorkerImpl::essenceContainerUL()
{
    return data_.essenceContainerUL;
}

Templates::Rational<int> const & BaseWorkerImpl::packageRate()
{
    return data_.packageRate;
}

bool BaseWorkerImpl::isCBE() const
{
    return std::all_of(data_.analyzers.begin(), data_.analyzers.end(),
                       [](AnalyzerEntry const & entry) { return entry.entryByteCount != 0; });
}

MXFIO::IndexTableGenerator * BaseWorkerImpl::indexTableGenerator()
{
    return generator_.get();
}

void BaseWorkerImpl::indexTableGenerator(Templates::auto_ptr<MXFIO::IndexTableGenerator> generator)
{
    generator_ = generator;
    containerGenerator_ = dynamic_cast<GenericContainerIndexTableGenerator *>(generator_.get());
    index_.indexTableGenerator(containerGenerator_);
    if (containerGenerator_ != nullptr)
        containerGenerator_->setupIndexSegments(indexSegmentInfo());
    updateContentInfo();
}

IndexSegmentInfo BaseWorkerImpl::indexSegmentInfo() const
{
    IndexSegmentInfo info = {data_.packageRate, klLength_,           data_.paddedPackageSize(),
                             wrapKind_,         data_.extendedTable, {}};
    for (AnalyzerEntry const & entry : data_.analyzers)
        info.entries.push_back({entry.entryByteCount, entry.analyzer->boundedEditUnitSize(),
                                static_cast<UInt32>(entry.itemSize), entry.analyzer->containsTemporalDependencies(),
                                entry.needsExtendedIndex, entry.filled, entry.padToItem, entry.analyzer->isCBE()});
    return info;
}

void BaseWorkerImpl::doNextContentPackage(DataIO::Chain & chain, Seconds & duration)
{
    if (done())
        return;

    sliceOffset_ = 0;
    lastItemSliceOffset_ = 0;
    prepareNewEntry();
    Seconds const tolerance(data_.packageRate.denominator(), Int64(PARTS_OF_PACKAGE) * data_.packageRate.numerator());
    Seconds const end = packageEnd() - tolerance;
    DataIO::Chain package;
    for (AnalyzerEntry & entry : data_.analyzers)
        duration = std::max(duration, processAnalyzer(entry, end, package));

    if (!package.empty())
        appendIndexEntry(package.data_size());
    chain.push_back(package);
    countEditUnit();
    updateContentInfo();
}

BaseWorkerImpl::Seconds BaseWorkerImpl::processAnalyzer(AnalyzerEntry & entry, Seconds const & end,
                                                        DataIO::Chain & chain)
{
    index_.processIndexEntryTemporalOffset(editUnits_, entry.needsExtendedIndex, entry.temporalOffset, entry.position,
                                           end, data_.packageRate);
    EditUnit unit;
    reader_.read(entry, end, unit);
    if (unit.valid)
        checkTimeCode(entry, unit);

    UInt64 size = unit.data.data_size();
    if (unit.duration != 0 && !entry.raw)
    {
        Templates::auto_ptr<DataIO::Slice> head = createKLSlice(entry, size, ELEMENT_LENGTH_SIZE);
        size += head->size();
        unit.data.push_front(head);
    }
    chain.push_back(unit.data);

    UInt64 const fill = fillSize(entry, size);
    createFiller(fill, chain);
    sliceOffset_ += size + fill;
    if (entry.padToItem)
        lastItemSliceOffset_ = sliceOffset_;

    index_.processAnalyzerIndexEntrySliceOffset(startsSlice(entry), static_cast<UInt32>(fill),
                                                static_cast<UInt32>(sliceOffset_));
    if (fillHasSlice(entry) && (entry.entryByteCount == 0 || entry.needsExtendedIndex))
        index_.processAnalyzerIndexEntrySliceOffset(true, 0, static_cast<UInt32>(sliceOffset_));
    index_.processAnalyzerIndexEntry(editUnits_, entry.analyzer->containsTemporalDependencies(), unit.flags,
                                     unit.temporalOffset);
    return {unit.duration.numerator(), unit.duration.denominator()};
}

BaseWorkerImpl::Seconds BaseWorkerImpl::packageEnd() const
{
    Seconds const packageDuration(data_.packageRate.denominator(), data_.packageRate.numerator());
    return packageDuration * Seconds(static_cast<Int64>(editUnits_) + 1);
}

// Bytes of fill behind an element of `size` bytes.
UInt64 BaseWorkerImpl::fillSize(AnalyzerEntry const & entry, UInt64 size) const
{
    // A system item of a set size has that size by itself.
    bool const isWholeItem = entry.raw && entry.itemSize > 0;
    if (entry.padToItem && !isWholeItem)
        return restOfItem(*entry.analyzer, size);
    if (entry.entryByteCount == 0)
        return Utils::alignBytes(data_.kagSize, size, klLength_);

    VANTRY_CHECK_TEXT(size <= entry.entryByteCount, "editUnitCurrentSize <= analyzerBytesPerEntry", InvalidLength,
                      "One analyzer (CBE) has produced an edit unit larger than expected");
    return entry.entryByteCount - size;
}

UInt64 BaseWorkerImpl::restOfItem(EssenceAnalyzer const & analyzer, UInt64 size) const
{
    auto const itemSize = static_cast<UInt64>(getItemSize(analyzer));
    UInt64 const used = sliceOffset_ + size - lastItemSliceOffset_;
    VANTRY_CHECK_TEXT(itemSize > used, "itemSize > sliceOffset_ - lastItemSliceOffset_", InvalidLength,
                      "Trying to store more data in the Generic Container then the edit unit can hold.");
    return itemSize - used;
}

// The size that an element has to fill up to as the last one; 0 for none.
Int32 BaseWorkerImpl::getItemSize(EssenceAnalyzer const & analyzer) const
{
    if (data_.editUnitSize > 0)
        return data_.editUnitSize;
    EssenceAnalyzerType kind = ANALYZER_SYSTEM;
    return kindByClass(analyzer, kind) ? std::max(data_.itemSizes[kind], 0) : 0;
}

bool BaseWorkerImpl::startsSlice(AnalyzerEntry const & entry) const
{
    return entry.entryByteCount == 0 || fillHasSlice(entry);
}

// Where fill has a place in the index, that behind an element of constant size
// by fill alone, or of any size, starts a slice: its place varies.
bool BaseWorkerImpl::fillHasSlice(AnalyzerEntry const & entry) const
{
    return entry.filled && !entry.analyzer->isCBE() && generator_.get() != nullptr &&
           generator_->indexSegmentType() == MXFIO::INDEX_VARIABLE_WITH_FILL;
}

Templates::auto_ptr<DataIO::Slice> BaseWorkerImpl::createKLSlice(AnalyzerEntry const & entry, UInt64 length,
                                                                 unsigned char lengthSize)
{
    return heads_.head(entry.key, length, lengthSize);
}

void BaseWorkerImpl::createFiller(UInt64 size, DataIO::Chain & chain)
{
    if (size == 0)
        return;
    VANTRY_CHECK_TEXT(size >= klLength_, "editUnitFillItemSize >= klLength_", InvalidLength,
                      "Not enough size to create filler in essence.");
    heads_.filler(size, static_cast<unsigned char>(klLength_ - KLV::fillItemKey().size()), chain);
}

void BaseWorkerImpl::prepareNewEntry()
{
    index_.prepareNewEntry(streamOffset_);
}

void BaseWorkerImpl::appendIndexEntry(UInt64 size)
{
    streamOffset_ += size;
    index_.appendIndexEntry();
}

void BaseWorkerImpl::updateContentInfo()
{
    if (containerGenerator_ != nullptr)
        containerGenerator_->currentContentInfo(editUnits_, streamOffset_);
}

void BaseWorkerImpl::checkTimeCode(AnalyzerEntry const & entry, EditUnit const & unit)
{
    if (entry.analyzer.get() == data_.timecodeMaster)
        timecode_.checkTimeCode(unit, data_.packageRate);
}

void BaseWorkerImpl::setupTimecodeTrack(Templates::Rational<int> const & duration)
{
    if (data_.timecodeMaster == nullptr)
        return;
    data_.timecodeMaster->preload();
    timecode_.setupTimecodeTrack(data_.timecodeMaster->currentTimeCode(), data_.packageRate, duration);
}

void BaseWorkerImpl::updateTrackOrigins()
{
    if (data_.sourcePackage != nullptr)
        setOrigins(*data_.sourcePackage, preCharge_);
}

}}

#include "GenericContainer/Multiplexer/Mux.h"

#include "Exceptions/AlreadySet.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "GenericContainer/ContainerBuilder.h"
#include "GenericContainer/Multiplexer/FrameWorker_impl.h"
#include "GenericContainer/S436M/ANCPacketsAnalyzer.h"
#include "GenericContainer/S436M/VBIDataAnalyzer.h"
#include "MXFIO/IndexTableGenerator.h"
#include "Platform/WideLiteral.h"
#include "Utils/Fill.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Vantry { namespace GenericContainer { namespace Multiplexer {

namespace {

// Key and length field of a fill item.
unsigned int const FILL_MARGIN = 20;

// VBI data and ANC packets (SMPTE 436M) have one number, and others follow:
// the byte ahead of it tells the two apart.
unsigned char const ANCILLARY_NUMBER = 1;
unsigned char const FIRST_DATA_NUMBER = 2;

constexpr char16_t SECOND_VBI[] = u"There can be only one VBIDataAnalyzer per Content Package (S436M-4.2).";
constexpr char16_t SECOND_ANC[] = u"There can be only one ANCPacketsAnalyzer per Content Package (S436M-4.2).";

EssenceAnalyzerType const ITEM_ORDER[] = {ANALYZER_COMPOUND, ANALYZER_PICTURE, ANALYZER_SOUND, ANALYZER_DATA};

ContainerBuilder::CountChecks const COUNT_CHECKS = {{
    {"", ""},
    {"compound_.size () <= MAXIMUM_ITEM_COUNT", "Trying to add more CompoundAnalyzers than allowed"},
    {"picture_.size () <= MAXIMUM_ITEM_COUNT", "Trying to add more PictureAnalyzers than allowed"},
    {"sound_.size () <= MAXIMUM_ITEM_COUNT", "Trying to add more than SoundAnalyzers than allowed"},
    {"data_.size () <= MAXIMUM_ITEM_COUNT", "Trying to add more than DataAnalyzers than allowed"},
}};

// Sizes come from applications and from essence.
template <class Size>
Size checkedSize(UInt64 size)
{
    VANTRY_CHECK(size <= UInt64(std::numeric_limits<Size>::max()), InvalidLength, "A content package is too large");
    return static_cast<Size>(size);
}

}

class Mux::Impl : public ContainerBuilder
{
public:
    VANTRY_CLASS_ALLOCATION

    using ContainerBuilder::ContainerBuilder;

    void addAnalyzer(PreEntry preEntry);
    void padTo(PaddingKind kind, Int32 editUnitSize, ContainerData::ItemSizes const & itemSizes);
    PaddingKind padding() const { return padding_; }
    void inputOrder(bool inputOrder) { inputOrder_ = inputOrder; }
    bool inputOrder() const { return inputOrder_; }
    Templates::auto_ptr<Source> commit();

private:
    void addSystem(PreEntry const & preEntry);
    unsigned char elementNumber(Kind kind, EssenceAnalyzer const & analyzer);
    void completeSizes();
    void enterSystem();
    void enter(Kind kind);
    void enter(PreEntry const & preEntry, Kind kind, bool isLast);
    UInt64 unitsPerPackage(EssenceAnalyzer & analyzer) const;
    UInt32 entryByteCount(EssenceAnalyzer & analyzer, bool isSystem, bool & fill) const;
    void needExtendedIndex(AnalyzerEntry & entry);

    bool systemFill_ = false;
    PaddingKind padding_ = PADD_TO_ELEMENT;
    bool inputOrder_ = false;
    bool vbiDataAnalyzerExists_ = false;
    bool ancPacketsAnalyzerExists_ = false;
    Templates::vector<Kind> kindsInInputOrder_;
};

void Mux::Impl::addAnalyzer(PreEntry preEntry)
{
    EssenceAnalyzer & analyzer = *preEntry.analyzer;
    Kind const kind = analyzer.essenceAnalyzerType();
    if (kind == ANALYZER_SYSTEM)
    {
        addSystem(preEntry);
    }
    else
    {
        checkCount(kind, COUNT_CHECKS);
        if (preEntry.elementNumber >= NO_ELEMENT_NUMBER)
            preEntry.elementNumber = elementNumber(kind, analyzer);
        offerTimecodeMaster(analyzer);
        preEntry.trackID = takeTrackID(analyzer);
        add(kind, preEntry);
    }

    if (std::find(kindsInInputOrder_.begin(), kindsInInputOrder_.end(), kind) == kindsInInputOrder_.end())
        kindsInInputOrder_.push_back(kind);
    kagSize(analyzer.requiredKAGSize());
}

void Mux::Impl::addSystem(PreEntry const & preEntry)
{
    VANTRY_CHECK_TEXT(data().system_.get() == nullptr, "system_.get () == 0", AlreadySet,
                      "Trying to add more than one SystemAnalyzer");
    takeTrackID(*preEntry.analyzer);
    data().timecodeMaster = preEntry.analyzer.get();
    data().system_ = preEntry.analyzer;
    systemFill_ = preEntry.fill;
}

unsigned char Mux::Impl::elementNumber(Kind kind, EssenceAnalyzer const & analyzer)
{
    if (dynamic_cast<S436M::VBIDataAnalyzer const *>(&analyzer) != nullptr)
    {
        VANTRY_CHECK(!vbiDataAnalyzerExists_, InvalidFormat, Platform::wide(SECOND_VBI).text);
        vbiDataAnalyzerExists_ = true;
        return ANCILLARY_NUMBER;
    }
    if (dynamic_cast<S436M::ANCPacketsAnalyzer const *>(&analyzer) != nullptr)
    {
        VANTRY_CHECK(!ancPacketsAnalyzerExists_, InvalidFormat, Platform::wide(SECOND_ANC).text);
        ancPacketsAnalyzerExists_ = true;
        return ANCILLARY_NUMBER;
    }

    auto const count = static_cast<unsigned char>(preEntries(kind).size());
    return kind == ANALYZER_DATA ? static_cast<unsigned char>(count + FIRST_DATA_NUMBER) : count;
}

void Mux::Impl::padTo(PaddingKind kind, Int32 editUnitSize, ContainerData::ItemSizes const & itemSizes)
{
    padding_ = kind;
    data().editUnitSize = editUnitSize;
    data().itemSizes = itemSizes;
}

Templates::auto_ptr<Source> Mux::Impl::commit()
{
    completeSizes();
    createPackage();
    enterSystem();
    if (inputOrder_)
        for (Kind kind : kindsInInputOrder_)
            enter(kind);
    else
        for (Kind kind : ITEM_ORDER)
            enter(kind);

    Templates::list<AnalyzerEntry> & entries = data().analyzers;
    if (padding_ == PADD_TO_EDIT_UNIT && !entries.empty())
    {
        entries.back().padToItem = true;
        entries.back().filled = true;
    }
    return Templates::auto_ptr<Source>(new FrameWorker_impl(data()));
}

// Takes all sizes to lines of the grid.
void Mux::Impl::completeSizes()
{
    auto const complete = [this](Int32 & size)
    {
        if (size > 0)
            size = checkedSize<Int32>(static_cast<UInt64>(size) +
                                      Utils::alignBytes(data().kagSize, static_cast<UInt64>(size), FILL_MARGIN));
    };
    for (Int32 & size : data().itemSizes)
        complete(size);
    complete(data().editUnitSize);
    for (Kind kind : ITEM_ORDER)
        if (preEntries(kind).empty())
            data().itemSizes[kind] = 0;
}

void Mux::Impl::enterSystem()
{
    if (data().system_.get() == nullptr)
        return;

    prepare(*data().system_);
    AnalyzerEntry entry;
    entry.analyzer = data().system_;
    entry.raw = true;
    // The index leaves its fill out, which it seeks behind a key and a length.
    bool fill = systemFill_;
    entry.entryByteCount = entryByteCount(*data().system_, true, fill);
    if (unitsPerPackage(*data().system_) > 1)
        needExtendedIndex(entry);

    Int32 const systemItemMaximumSize = data().itemSizes[ANALYZER_SYSTEM];
    if (systemItemMaximumSize > 0)
    {
        VANTRY_CHECK_TEXT(
            static_cast<Int32>(entry.entryByteCount) <= systemItemMaximumSize,
            "static_cast <Platform::Int32> (entry.entryByteCount) <= systemItemMaximumSize", InvalidFormat,
            "Trying to force into the GC a system Item maximum value smaller then the system Item size. Please "
            "increate the system item maximum size");
        entry.entryByteCount = static_cast<UInt32>(systemItemMaximumSize);
        entry.itemSize = systemItemMaximumSize;
        entry.padToItem = true;
    }
    data().analyzers.push_back(entry);
}

void Mux::Impl::enter(Kind kind)
{
    for (PreEntry const & preEntry : preEntries(kind))
        enter(preEntry, kind, &preEntry == &preEntries(kind).back());
}

void Mux::Impl::enter(PreEntry const & preEntry, Kind kind, bool isLast)
{
    EssenceAnalyzer & analyzer = *preEntry.analyzer;
    prepare(analyzer);
    if (analyzer.containsTemporalDependencies())
        checkTemporalReordering(preEntry);

    AnalyzerEntry entry;
    entry.analyzer = preEntry.analyzer;
    entry.key = describe(preEntry, trackNumberOf(analyzer.itemTypeIdentifier(), analyzer, preEntries(kind).size(),
                                                 preEntry.elementNumber));
    entry.temporalOffset = preEntry.temporalOffset;
    entry.filled = padding_ == PADD_TO_ELEMENT && preEntry.fill;
    entry.entryByteCount = entryByteCount(analyzer, false, entry.filled);
    entry.itemSize = std::max(data().itemSizes[kind], 0);
    entry.padToItem = isLast && padding_ != PADD_TO_ELEMENT && entry.itemSize > 0;
    entry.filled = entry.filled || entry.padToItem;

    Templates::Rational<Int64> const packageRate(data().packageRate.numerator(), data().packageRate.denominator());
    if ((preEntry.temporalOffset * packageRate).denominator() != 1)
        needExtendedIndex(entry);
    if (preEntry.temporalOffset < 0)
        entry.entryByteCount = 0;
    if (unitsPerPackage(analyzer) > 1)
        needExtendedIndex(entry);
    data().analyzers.push_back(entry);
}

// The most edit units of an analyzer that start in a content package.
UInt64 Mux::Impl::unitsPerPackage(EssenceAnalyzer & analyzer) const
{
    Templates::Rational<int> const rate = analyzer.editRate();
    Templates::Rational<int> const packageRate = data().packageRate;
    Templates::Rational<Int64> const ratio =
        Templates::Rational<Int64>(rate.numerator(), rate.denominator()) /
        Templates::Rational<Int64>(packageRate.numerator(), packageRate.denominator());
    return static_cast<UInt64>((ratio.numerator() + ratio.denominator() - 1) / ratio.denominator());
}

// \param fill  whether elements are filled to their size; set to whether they
//              will be
UInt32 Mux::Impl::entryByteCount(EssenceAnalyzer & analyzer, bool isSystem, bool & fill) const
{
    bool const isCBE = analyzer.isCBE();
    UInt64 const bound = analyzer.boundedEditUnitSize();
    if ((!fill && !isCBE) || bound == 0)
        return 0;

    UInt64 const units = unitsPerPackage(analyzer);
    unsigned int const margin = isSystem ? 0 : FILL_MARGIN;
    UInt64 size = units * bound + margin;
    if (padding_ != PADD_TO_ELEMENT)
        return units < 2 ? checkedSize<UInt32>(size) : 0;

    if (!isCBE)
        size += margin;
    UInt64 const extra = Utils::alignBytes(data().kagSize, size, margin);
    fill = units > 1 || extra != 0;
    return checkedSize<UInt32>(size + extra);
}

void Mux::Impl::needExtendedIndex(AnalyzerEntry & entry)
{
    entry.needsExtendedIndex = true;
    data().extendedTable = true;
}

Mux::Mux(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, Types::UniversalLabel const & essenceContainer,
         Templates::Rational<int> const & packageRate, Types::UMID32 const * packageUID) :
    impl_(new Impl(std::move(metadata), nullptr, essenceContainer, packageRate, packageUID))
{
}

Mux::Mux(Metadata::Structural::SourcePackage * package, Types::UniversalLabel const & essenceContainer,
         Templates::Rational<int> const & packageRate) :
    impl_(new Impl({}, package, essenceContainer, packageRate, nullptr))
{
}

Mux::~Mux()
{
    delete impl_;
}

void Mux::addAnalyzer(Templates::SharedPtr<EssenceAnalyzer> analyzer, bool fill,
                      Templates::Rational<Int64> const & temporalOffset)
{
    addAnalyzer(std::move(analyzer), fill, temporalOffset, Impl::NO_ELEMENT_NUMBER);
}

void Mux::addAnalyzer(Templates::SharedPtr<EssenceAnalyzer> analyzer, bool fill,
                      Templates::Rational<Int64> const & temporalOffset, unsigned char elementNumber)
{
    impl_->addAnalyzer({std::move(analyzer), fill, temporalOffset, elementNumber, 0});
}

void Mux::paddToElement()
{
    impl_->padTo(PADD_TO_ELEMENT, -1, {-1, -1, -1, -1, -1});
}

void Mux::paddToItem(int system, int compound, int picture, int sound, int data)
{
    impl_->padTo(PADD_TO_ITEM, -1, {system, compound, picture, sound, data});
}

void Mux::paddToEditUnit(unsigned int size)
{
    impl_->padTo(PADD_TO_EDIT_UNIT, checkedSize<Int32>(size), {-1, -1, -1, -1, -1});
}

Mux::PaddingKind Mux::paddingType() const
{
    return impl_->padding();
}

void Mux::kagSize(unsigned int size)
{
    impl_->kagSize(size);
}

void Mux::indexFillPackets(bool index)
{
    impl_->data().indexFillPackets = index;
}

void Mux::multiplexAllEssence(bool all)
{
    impl_->data().multiplexAllEssence = all;
}

void Mux::useAnalyzerInputOrderToSortContainer(bool inputOrder)
{
    impl_->inputOrder(inputOrder);
}

bool Mux::useAnalyzerInputOrderToSortContainer() const
{
    return impl_->inputOrder();
}

void Mux::suppressTimecodeDiscontinuities(bool suppress)
{
    impl_->data().suppressTimecodeDiscontinuities(suppress);
}

unsigned int Mux::nextBaseTrackID() const
{
    return impl_->nextBaseTrackID();
}

bool Mux::nextBaseTrackID(unsigned int trackID)
{
    return impl_->nextBaseTrackID(trackID);
}

void Mux::defaultStartTimecode(bool override, unsigned char hours, unsigned char minutes, unsigned char seconds,
                               unsigned char frames)
{
    impl_->data().defaultStartTimecode(override, hours, minutes, seconds, frames);
}

Templates::auto_ptr<Source> Mux::commit()
{
    return impl_->commit();
}

}}}

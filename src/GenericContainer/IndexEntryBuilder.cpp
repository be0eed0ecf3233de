#include "GenericContainer/IndexEntryBuilder.h"

#include "Exceptions/InvalidValue.h"
#include "GenericContainer/GenericContainerIndexTableGenerator.h"
#include "GenericContainer/PictureOrder.h"
#include "IndexTables/IndexEntry.h"
#include "Templates/SafeCast.h"

namespace Vantry { namespace GenericContainer {

namespace {

using Seconds = Templates::Rational<Int64>;

Seconds startOf(UInt64 editUnit, Templates::Rational<int> const & rate)
{
    Int64 const whole = Templates::SafeCast<Int64, Exceptions::InvalidValue>(editUnit);
    return Seconds(whole) * Seconds(rate.denominator(), rate.numerator());
}

Templates::Rational<int> narrowed(Seconds const & value)
{
    return {Templates::SafeCast<int, Exceptions::InvalidValue>(value.numerator()),
            Templates::SafeCast<int, Exceptions::InvalidValue>(value.denominator())};
}

}

class IndexEntryBuilder::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    GenericContainerIndexTableGenerator * generator = nullptr;

    // Whether the entry is one for this generator.
    bool isStarted = false;

    IndexTables::IndexEntry entry = IndexTables::IndexEntry(0);
    unsigned int slicesLeft = 0;
    unsigned int positionsLeft = 0;
    PictureOrder pictures;

    // Whether the current element has a place in the position table: a slice
    // starts behind it.
    bool hasPosition = false;
};

IndexEntryBuilder::IndexEntryBuilder() : impl_(new Impl) {}

IndexEntryBuilder::~IndexEntryBuilder()
{
    delete impl_;
}

void IndexEntryBuilder::indexTableGenerator(GenericContainerIndexTableGenerator * generator)
{
    impl_->generator = generator;
    impl_->isStarted = false;
}

void IndexEntryBuilder::prepareNewEntry(UInt64 streamOffset)
{
    if (impl_->generator == nullptr)
        return;

    impl_->entry = IndexTables::IndexEntry(streamOffset);
    impl_->slicesLeft = impl_->generator->sliceCount();
    impl_->positionsLeft = impl_->generator->posTableCount();
    impl_->hasPosition = false;
    impl_->isStarted = true;
}

void IndexEntryBuilder::appendIndexEntry()
{
    if (impl_->isStarted)
        impl_->generator->writeIndexEntry(impl_->entry);
}

void IndexEntryBuilder::processIndexEntryTemporalOffset(UInt64 count, bool needsExtended,
                                                        Seconds const & temporalOffset, Seconds const & position,
                                                        Seconds const & target, Templates::Rational<int> const & rate)
{
    impl_->hasPosition = needsExtended;
    if (!impl_->isStarted || !needsExtended || impl_->positionsLeft == 0)
        return;

    --impl_->positionsLeft;
    Seconds const start = temporalOffset + position;
    Seconds const place = start < target ? start - startOf(count, rate) : Seconds();
    impl_->entry.addPosTable(static_cast<unsigned char>(impl_->entry.posTableCount()), narrowed(place));
}

void IndexEntryBuilder::processAnalyzerIndexEntry(UInt64 count, bool temporal, unsigned char flags,
                                                  signed char temporalOffset)
{
    if (impl_->isStarted && temporal)
        impl_->pictures.process(impl_->entry, count, flags, temporalOffset);
}

void IndexEntryBuilder::processAnalyzerIndexEntrySliceOffset(bool newSlice, UInt32 fill, UInt32 sliceOffset)
{
    if (!impl_->isStarted || !(newSlice || impl_->hasPosition) || impl_->slicesLeft == 0)
        return;

    --impl_->slicesLeft;
    if (impl_->generator->indexSegmentType() == MXFIO::INDEX_VARIABLE_WITH_FILL)
        sliceOffset -= fill;
    impl_->entry.addSliceOffset(static_cast<unsigned char>(impl_->entry.sliceOffsetCount()), sliceOffset);
}

}}

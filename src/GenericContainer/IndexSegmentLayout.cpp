#include "GenericContainer/IndexSegmentLayout.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/NotImplemented.h"
#include "GenericContainer/IndexSegmentInfo.h"
#include "IndexTables/IndexTableSegment.h"

#include <algorithm>

namespace Vantry { namespace GenericContainer {

namespace {

unsigned int const MOST_SLICES = 255;
int const MOST_POSITIONS = 127;

bool isConstant(IndexEntryData const & element)
{
    return element.entryByteCount != 0;
}

bool isConstant(IndexSegmentInfo const & info)
{
    return std::all_of(info.entries.begin(), info.entries.end(),
                       [](IndexEntryData const & element) { return isConstant(element); });
}

bool hasFill(MXFIO::IndexTableSegmentType type)
{
    return type == MXFIO::INDEX_CONSTANT_WITH_FILL || type == MXFIO::INDEX_VARIABLE_WITH_FILL;
}

}

MXFIO::IndexTableSegmentType resolvedType(MXFIO::IndexTableSegmentType type, IndexSegmentInfo const & info)
{
    if (type != MXFIO::INDEX_AUTOMATIC && type != MXFIO::INDEX_AUTOMATIC_WITH_FILL)
        return type;

    bool const withFill = type == MXFIO::INDEX_AUTOMATIC_WITH_FILL;
    if (!isConstant(info) || info.extendedTable)
        return withFill ? MXFIO::INDEX_VARIABLE_WITH_FILL : MXFIO::INDEX_VARIABLE;
    if (info.entries.size() == 1)
        return MXFIO::INDEX_CONSTANT_ELEMENT;
    return withFill ? MXFIO::INDEX_CONSTANT_WITH_FILL : MXFIO::INDEX_CONSTANT;
}

IndexSegmentLayout::IndexSegmentLayout(IndexSegmentInfo const & info, MXFIO::IndexTableSegmentType type) : type_(type)
{
    if (info.wrapKind == IndexSegmentInfo::CLIP_WRAPPING)
        addClip(info);
    else
        addFrame(info);
}

unsigned char IndexSegmentLayout::sliceCount() const
{
    return hasEntries() ? sliceCount_.value_or(0) : 0;
}

unsigned char IndexSegmentLayout::posTableCount() const
{
    return hasEntries() ? posTableCount_.value_or(0) : 0;
}

void IndexSegmentLayout::fill(IndexTables::IndexTableSegment & segment) const
{
    segment.editUnitByteCount(editUnitByteCount_);
    if (sliceCount_)
        segment.sliceCount(*sliceCount_);
    if (posTableCount_)
        segment.posTableCount(*posTableCount_);
    for (IndexTables::DeltaEntry const & delta : deltas_)
        segment.addDeltaEntry(segment.deltaEntryCount(), delta);
}

void IndexSegmentLayout::addFrame(IndexSegmentInfo const & info)
{
    for (IndexEntryData const & element : info.entries)
        addFrameElement(element, info);

    if (!isConstant(info))
        editUnitByteCount_ = 0;
    if (info.paddedSize != 0)
        editUnitByteCount_ = info.paddedSize;
}

// Sizes are counted modulo 2^32: what doesn't fit its item is refused where
// the essence is written.
void IndexSegmentLayout::addFrameElement(IndexEntryData const & element, IndexSegmentInfo const & info)
{
    bool const hasPosition = posTableIndexOf(element) > 0;
    addElement(element);
    bool const fillHasSlice = addFill(element, info.klLength);

    // In a slice that starts with the fill, the element takes nothing.
    UInt32 size = fillHasSlice ? 0 : element.entryByteCount;
    sizeOfItem_ += size;
    if (element.isPadToItem)
    {
        UInt32 const itemSize = element.itemSize != 0 ? element.itemSize : info.paddedSize;
        size += itemSize - sizeOfItem_;
        sizeOfItem_ = 0;
    }

    elementDelta_ += size;
    editUnitByteCount_ += size;
    if (isConstant(element) && !element.needsExtendedIndex)
        return;

    // What follows lies in a slice of its own, also behind fill that has one.
    elementDelta_ = 0;
    ++slice_;
    if (hasEntries() && hasPosition)
        ++positions_;
}

void IndexSegmentLayout::addClip(IndexSegmentInfo const & info)
{
    if (info.entries.size() > 1)
        VANTRY_FAIL(NotImplemented, "Cannot generate IndexTables for more then one Clip wrapped element. Please use "
                                    "OP1b or higher or discard indexTables.");

    for (IndexEntryData const & element : info.entries)
    {
        addElement(element);
        editUnitByteCount_ = element.entryByteCount;
    }
}

void IndexSegmentLayout::addElement(IndexEntryData const & element)
{
    if (type_ == MXFIO::INDEX_CONSTANT_ELEMENT)
        return;

    int const posTableIndex = posTableIndexOf(element);
    addDelta(posTableIndex, elementDelta_);
    if (hasEntries() && posTableIndex > 0)
        posTableCount_ = static_cast<unsigned char>(posTableIndex);
}

// Adds the fill behind an element, if the index is to have it. Tells whether
// it starts a slice.
bool IndexSegmentLayout::addFill(IndexEntryData const & element, UInt32 klLength)
{
    if (!hasFill(type_) || !element.isFilled)
        return false;

    if (element.isCBE)
    {
        addDelta(0, elementDelta_ + klLength + element.boundedEditUnitSize);
        return false;
    }

    ++slice_;
    elementDelta_ = 0;
    addDelta(0, 0);
    return true;
}

void IndexSegmentLayout::addDelta(int posTableIndex, UInt32 delta)
{
    VANTRY_CHECK(slice_ <= MOST_SLICES && posTableIndex <= MOST_POSITIONS, IndexOutOfBounds,
                 "The container has more elements of variable size or place than an index table can tell apart.");

    deltas_.emplace_back(static_cast<signed char>(posTableIndex), static_cast<unsigned char>(slice_), delta);
    sliceCount_ = static_cast<unsigned char>(slice_);
}

int IndexSegmentLayout::posTableIndexOf(IndexEntryData const & element) const
{
    if (element.isTemporal)
        return -1;
    return element.needsExtendedIndex ? static_cast<int>(positions_) + 1 : 0;
}

}}

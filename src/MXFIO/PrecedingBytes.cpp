#include "MXFIO/PrecedingBytes.h"

#include "Exceptions/Check.h"
#include "Exceptions/NotImplemented.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "MXFIO/IndexTableProvider.h"
#include "MXFIO/SaturatingSum.h"

#include <limits>

namespace Vantry { namespace MXFIO {

namespace {

UInt64 saturatingProduct(UInt64 left, UInt64 right)
{
    UInt64 product = 0;
    return __builtin_mul_overflow(left, right, &product) ? std::numeric_limits<UInt64>::max() : product;
}

void checkConstantSize(IndexTables::IndexTableSegment const & previousSegment)
{
    VANTRY_CHECK_TEXT(previousSegment.indexEntryCount() == 0 && previousSegment.editUnitByteCount() != nullptr &&
                          previousSegment.editUnitByteCount()->value() != 0,
                      "previousSegment -> indexEntryCount () == 0 && previousSegment -> editUnitByteCount () != 0 && "
                      "previousSegment -> editUnitByteCount () -> value () != 0",
                      NotImplemented, "Mixed mode of CBE and VBE IndexTableSegments is not supported.");
}

}

bool PrecedingBytes::ahead(IndexTables::IndexTableSegment const & segment, IndexTableProvider & index, UInt64 & bytes)
{
    // Back to the first segment, or to one whose sum is known.
    struct Step
    {
        Int64 start;
        UInt64 bytes;
    };
    Templates::vector<Step> steps;
    Int64 start = segment.indexStartPosition().value();
    while (start > 0 && sums_.count(start) == 0)
    {
        auto const previousSegment = index.segment(start - 1);
        if (!previousSegment)
            return false;
        checkConstantSize(*previousSegment);

        Int64 const previousStart = previousSegment->indexStartPosition().value();
        steps.push_back({start, saturatingProduct(previousSegment->editUnitByteCount()->value(),
                                                  UInt64(start) - UInt64(previousStart))});
        start = previousStart;
    }

    bytes = start > 0 ? sums_[start] : 0;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step)
        sums_[step->start] = bytes = saturatingSum(bytes, step->bytes);
    return true;
}

}}

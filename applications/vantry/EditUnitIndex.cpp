#include "EditUnitIndex.h"

#include "Exceptions/BaseException.h"
#include "Exceptions/IOError.h"
#include "IndexTables/IndexEntry.h"
#include "MXFIO/IndexTableCompleteCache.h"
#include "MXFIO/IndexTableParseOnRequestProvider.h"
#include "MXFIO/Reader2.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"

#include <limits>

namespace Vantry { namespace Application {

namespace {

using IndexTables::IndexTableSegmentWithGOPInfo;
using Segment = Templates::SharedPtr<IndexTableSegmentWithGOPInfo>;

/// An index that can't be read is none.
Segment segmentOf(MXFIO::IndexTableProvider & provider, Int64 editUnit)
{
    try
    {
        return provider.segment(editUnit);
    }
    catch (Exceptions::IOError const &)
    {
        throw;
    }
    catch (Exceptions::BaseException const &)
    {
        return Segment();
    }
}

UInt64 constantSize(IndexTableSegmentWithGOPInfo const & segment)
{
    bool const isConstant = segment.indexEntryCount() == 0 && segment.editUnitByteCount() != nullptr;
    return isConstant ? segment.editUnitByteCount()->value() : 0;
}

std::optional<UInt64> sum(UInt64 start, UInt64 count, UInt64 size)
{
    if (size != 0 && count > (std::numeric_limits<UInt64>::max() - start) / size)
        return std::nullopt;
    return start + count * size;
}

}

EditUnitIndex::EditUnitIndex(MXFIO::Reader2 & reader, unsigned bodySID, unsigned indexSID)
{
    if (indexSID == 0)
        return;

    Templates::SharedPtr<MXFIO::IndexTableCache> const cache(new MXFIO::IndexTableCompleteCache(bodySID, indexSID));
    provider_ = std::make_unique<MXFIO::IndexTableParseOnRequestProvider>(cache, reader, indexSID);

    Segment const first = segmentOf(*provider_, 0);
    if (first.get() == nullptr)
        return;
    Types::Rational const & rate = first->indexEditRate();
    if (rate.numerator() > 0 && rate.denominator() > 0)
        editRate_.emplace(rate.numerator(), rate.denominator());
    editUnitSize_ = constantSize(*first);
}

EditUnitIndex::~EditUnitIndex() = default;

std::optional<UInt64> EditUnitIndex::offset(Int64 editUnit)
{
    if (!provider_)
        return std::nullopt;

    Segment const segment = segmentOf(*provider_, editUnit);
    if (segment.get() == nullptr || segment->indexEntryCount() == 0)
        return offsetByConstantSizes(editUnit);

    UInt64 const place = UInt64(editUnit) - UInt64(segment->indexStartPosition().value());
    if (place >= segment->indexEntryCount())
        return std::nullopt;
    return segment->indexEntry(static_cast<unsigned>(place)).streamOffset();
}

// Segments of constant edit units don't say where they begin, so those ahead
// are added up.
std::optional<UInt64> EditUnitIndex::offsetByConstantSizes(Int64 editUnit)
{
    std::optional<UInt64> start = 0;
    for (Int64 unit = 0; start;)
    {
        Segment const segment = segmentOf(*provider_, unit);
        if (segment.get() == nullptr || segment->indexStartPosition().value() != unit || constantSize(*segment) == 0)
            break;

        UInt64 const size = constantSize(*segment);
        Int64 const duration = segment->indexDuration().value();
        if (duration <= 0 || editUnit - unit <= duration)
            return sum(*start, UInt64(editUnit - unit), size);
        start = sum(*start, UInt64(duration), size);
        unit += duration;
    }
    return std::nullopt;
}

}}

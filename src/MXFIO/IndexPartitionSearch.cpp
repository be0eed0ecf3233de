#include "MXFIO/IndexPartitionSearch.h"

#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "MXFIO/IndexTableCache.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/RIPEntry.h"
#include "MXFIO/SaturatingSum.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace MXFIO {

namespace {

UInt64 const NONE = std::numeric_limits<UInt64>::max();

UInt64 distance(Int64 from, Int64 to)
{
    return static_cast<UInt64>(to) - static_cast<UInt64>(from);
}

}

IndexPartitionSearch::IndexPartitionSearch(Reader2 & reader, IndexTableCache & cache) :
    reader_(reader), cache_(cache), assumedMean_(0), editUnitsSeen_(0), partitionsSeen_(0), isMisled_(false)
{
}

void IndexPartitionSearch::append(UInt64 thisPartition)
{
    records_.push_back({thisPartition, false, 0, {0, 0}});
}

void IndexPartitionSearch::know(UInt64 thisPartition, IndexedRange const & range)
{
    for (Record & record : records_)
        if (record.thisPartition == thisPartition)
        {
            record.isComplete = true;
            record.range = range;
        }
}

Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> IndexPartitionSearch::find(Int64 editUnit)
{
    UInt64 wanted = editUnit > 0 ? partitionsIn(static_cast<UInt64>(editUnit)) : 0;
    UInt64 low = 0;
    UInt64 high = records_.size();
    while (low < high)
    {
        UInt64 const at = nearestIndexed(std::min(std::max(wanted, low), high - 1), low, high);
        if (at == NONE)
            break;

        Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> found = cache_.segment(editUnit);
        if (found.get() != nullptr)
            return found;

        IndexedRange const & range = records_[at].range;
        if (editUnit < range.first)
        {
            high = at;
            wanted = at - std::min(at, partitionsIn(distance(editUnit, range.first)));
        }
        else if (editUnit >= range.end)
        {
            low = at + 1;
            wanted = at + std::min(records_.size(), partitionsIn(distance(range.end, editUnit)));
        }
        else
            break;
    }
    return Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>();
}

void IndexPartitionSearch::loadLast()
{
    hasIndex(records_.size() - 1);
}

// Many files have partitions without index between those with one.
UInt64 IndexPartitionSearch::nearestIndexed(UInt64 wanted, UInt64 low, UInt64 high)
{
    for (UInt64 step = 0; wanted + step < high || wanted >= low + step; ++step)
    {
        if (wanted + step < high && hasIndex(wanted + step))
            return wanted + step;
        if (wanted >= low + step && hasIndex(wanted - step))
            return wanted - step;
    }
    return NONE;
}

bool IndexPartitionSearch::hasIndex(UInt64 at)
{
    Record & record = records_[at];
    if (!record.isComplete)
        load(record);
    return !record.range.isEmpty();
}

void IndexPartitionSearch::load(Record & record)
{
    DataIO::RandomAccessDataSource const & source = reader_.source();
    UInt64 const end = saturatingSum(source.absoluteOffset(), source.remaining());
    if (end <= record.endOfSource)
        return;

    record.endOfSource = end;
    read(record);
}

void IndexPartitionSearch::read(Record & record)
{
    PositionKeeper const keeper(reader_.source());
    Partition * const partition = partitionOfEntry(reader_, record.thisPartition);
    if (partition == nullptr)
    {
        isMisled_ = true;
        return;
    }

    record.range = loadSegments(reader_, *partition, cache_.indexSID(), cache_);
    record.isComplete = partition->bodyAbsoluteOffset() <= record.endOfSource;
    if (record.isComplete)
        learn(record.range);
}

void IndexPartitionSearch::learn(IndexedRange const & range)
{
    bool const hasEnd = range.end != std::numeric_limits<Int64>::max();
    UInt64 const count = range.isEmpty() || !hasEnd ? 0 : distance(range.first, range.end);
    if (count == 0 || count > NONE - editUnitsSeen_)
        return;

    editUnitsSeen_ += count;
    ++partitionsSeen_;
}

// How many partitions so many edit units take up; 0 while nothing is known of
// that, and the search goes step by step.
UInt64 IndexPartitionSearch::partitionsIn(UInt64 editUnits) const
{
    UInt64 const mean = partitionsSeen_ != 0 ? editUnitsSeen_ / partitionsSeen_ : assumedMean_;
    return mean != 0 ? editUnits / mean : 0;
}

}}

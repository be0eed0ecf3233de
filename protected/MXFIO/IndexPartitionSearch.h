#pragma once

#include "MXFIO/SegmentLoader.h"
#include "Platform/Allocation.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace IndexTables {
class IndexTableSegmentWithGOPInfo;
}

namespace MXFIO {

class Reader2;

/// Finds an edit unit among partitions whose index is read only when it is
/// looked at. Each look narrows the range and tells more of how many edit
/// units a partition covers on the mean.
class IndexPartitionSearch
{
public:
    VANTRY_CLASS_ALLOCATION

    /// All is lent. `indexSID` is that of the cache.
    IndexPartitionSearch(Reader2 & reader, IndexTableCache & cache);

    /// Adds a partition that lies behind all others, not counting the run-in.
    void append(UInt64 thisPartition);

    /// Tells what a partition covers that was read elsewhere, if it is there.
    void know(UInt64 thisPartition, IndexedRange const & range);

    /// How many edit units partitions are taken to cover until one was read.
    void assumeMean(UInt64 editUnits) { assumedMean_ = editUnits; }

    /// The segment that covers an edit unit, null for none.
    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> find(Int64 editUnit);

    /// Sees that the last partition was read.
    void loadLast();

    UInt64 size() const { return records_.size(); }

    /// Whether there was no partition where one was said to be.
    bool isMisled() const { return isMisled_; }

private:
    struct Record
    {
        UInt64 thisPartition;

        // What is still being written is read again once there is more of it.
        bool isComplete;
        UInt64 endOfSource;
        IndexedRange range;
    };

    UInt64 nearestIndexed(UInt64 wanted, UInt64 low, UInt64 high);
    bool hasIndex(UInt64 at);
    void load(Record & record);
    void read(Record & record);
    void learn(IndexedRange const & range);
    UInt64 partitionsIn(UInt64 editUnits) const;

    Reader2 & reader_;
    IndexTableCache & cache_;
    Templates::vector<Record> records_;
    UInt64 assumedMean_;
    UInt64 editUnitsSeen_;
    UInt64 partitionsSeen_;
    bool isMisled_;
};

}
}

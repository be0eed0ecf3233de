#include "MXFIO/StreamingPartitionProvider.h"

#include "DataIO/RandomAccessDataSource.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "MXFIO/SaturatingSum.h"
#include "Packs/PartitionPack.h"

#include <iterator>

namespace Vantry { namespace MXFIO {

StreamingPartitionProvider::StreamingPartitionProvider(Reader2 & reader, unsigned int bodySID) :
    reader_(reader), bodySID_(bodySID), newest_(nullptr)
{
}

StreamingPartitionProvider::~StreamingPartitionProvider() = default;

Partition * StreamingPartitionProvider::partitionContaining(UInt64 bodyOffset, Int64)
{
    refresh();
    auto const behind = partitions_.upper_bound(bodyOffset);
    if (behind == partitions_.begin())
        return nullptr;

    auto const at = std::prev(behind);
    return bodyOffset - at->first < lengthOf(at) ? at->second : nullptr;
}

// Takes in what the reader has met since the last time; nothing is looked for
// but what lies between.
void StreamingPartitionProvider::refresh()
{
    Partition * partition = reader_.lastLoadedPartition();
    if (partition != nullptr && partition->partitionPack().bodySID() != bodySID_)
        partition = reader_.previousPartition(partition, bodySID_);

    Templates::vector<Partition *> met;
    for (; partition != nullptr && partition != newest_; partition = reader_.previousPartition(partition, bodySID_))
        met.push_back(partition);

    // Of two that start at the same byte the first is empty.
    for (auto next = met.rbegin(); next != met.rend(); ++next)
        partitions_[(*next)->partitionPack().bodyOffset()] = *next;
    if (!met.empty())
        newest_ = met.front();
}

UInt64 StreamingPartitionProvider::lengthOf(Partitions::const_iterator at)
{
    auto const next = std::next(at);
    if (next != partitions_.end())
        return next->first - at->first;

    UInt64 const body = at->second->bodyAbsoluteOffset();
    Partition const * const follower =
        at->second != reader_.lastLoadedPartition() ? reader_.nextPartition(at->second) : nullptr;
    DataIO::RandomAccessDataSource const & source = reader_.source();
    UInt64 const end = follower != nullptr ? follower->partitionAbsoluteOffset()
                                           : saturatingSum(source.absoluteOffset(), source.remaining());
    return end > body ? end - body : 0;
}

}}

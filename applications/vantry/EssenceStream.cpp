#include "EssenceStream.h"

#include "FileLayout.h"
#include "MXFIO/Partition.h"
#include "Packs/PartitionPack.h"
#include "Warnings.h"

#include <algorithm>

namespace Vantry { namespace Application {

EssenceStream::EssenceStream(FileLayout const & layout, unsigned int bodySID, Warnings & warnings) : bodySID_(bodySID)
{
    for (std::size_t const i : layout.partitionsOf(bodySID))
    {
        MXFIO::Partition const & partition = *layout.partitions()[i];
        Packs::PartitionPack const & pack = partition.partitionPack();
        isGeneric_ = isGeneric_ || pack.isGenericStreamsPartition();
        endsOpen_ = i + 1 == layout.partitions().size() && layout.endsOpen();
        add(pack.bodyOffset(), partition.bodyAbsoluteOffset(), layout.end(i), warnings);
    }
}

void EssenceStream::add(UInt64 claimedStart, UInt64 fileStart, UInt64 fileEnd, Warnings & warnings)
{
    UInt64 const start = std::min(fileStart, fileEnd);
    UInt64 const size = fileEnd - start;
    UInt64 const expected = size_;
    size_ += size;
    if (hasGap_)
        return;

    // More bytes ahead than there are: a partition is missing.
    hasGap_ = claimedStart > expected;
    if (claimedStart != expected && !isGeneric_)
        warnings.add(fmt::format("{} bytes of body SID {} should be ahead of offset {}, and {} are", claimedStart,
                                 bodySID_, start, expected));
    if (!hasGap_)
        stretches_.push_back({expected, start, size});
}

}}

#include "MXFIO/ProviderSelection.h"

#include "Exceptions/InvalidFormat.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "MXFIO/BasicPartitionProvider.h"
#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/EstimatePartitionProvider.h"
#include "MXFIO/FixedEditUnitCountPartitionProvider.h"
#include "MXFIO/IndexTableCompleteCache.h"
#include "MXFIO/IndexTableParseOnRequestProvider.h"
#include "MXFIO/IndexTablePositionEstimateProvider.h"
#include "MXFIO/IndexTableStreamingProvider.h"
#include "MXFIO/Partition.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/Reader2.h"
#include "MXFIO/SegmentLoader.h"
#include "MXFIO/StreamingPartitionProvider.h"
#include "Packs/RandomIndexPack.h"

#include <limits>

namespace Vantry { namespace MXFIO {

namespace {

using Cache = Templates::SharedPtr<IndexTableCache>;
using Profile = Templates::SharedPtr<ContentStorageProfile>;
using IndexPtr = Templates::auto_ptr<IndexTableProvider>;
using PartitionsPtr = Templates::auto_ptr<PartitionProvider>;

Reader2 * reader2Of(Container const & container)
{
    return dynamic_cast<Reader2 *>(&container.reader);
}

// A partition with index, and the edit units that it covers.
struct LastIndex
{
    Partition * partition;
    IndexedRange range;
};

// What the footer has of the index, or else the last partition that has any.
LastIndex lastIndex(Reader2 & reader, unsigned int indexSID, IndexTableCache & cache)
{
    Partition * partition = reader.footerPartition();
    if (partition == nullptr)
        return {nullptr, {0, 0}};

    IndexedRange range = loadSegments(reader, *partition, indexSID, cache);
    if (range.isEmpty())
        partition = reader.previousIndexPartition(partition, indexSID);
    if (range.isEmpty() && partition != nullptr)
        range = loadSegments(reader, *partition, indexSID, cache);
    return {partition, range};
}

// Null when the file hasn't what an estimate takes.
IndexPtr positionEstimate(Container const & container, Reader2 & reader, Cache const & cache)
try
{
    if (!reader.rip())
        return IndexPtr();

    LastIndex const last = lastIndex(reader, container.indexSID, *cache);
    if (last.range.isEmpty() || last.range.end == std::numeric_limits<Int64>::max())
        return IndexPtr();
    return IndexPtr(new IndexTablePositionEstimateProvider(cache, reader, container.indexSID, container.bodySID,
                                                           last.range.first, last.range.end, last.partition));
}
catch (Exceptions::InvalidFormat const &)
{
    return IndexPtr();
}

bool hasFixedPartitions(Profile const & profile)
{
    unsigned int editUnits = 0;
    return profile && profile->editUnitsPerPartition(&editUnits) == KNOWLEDGE_KNOWN && editUnits != 0;
}

// Null when the random index pack is of no use.
PartitionsPtr byRandomIndexPack(Container const & container, Reader2 & reader, Profile const & profile)
try
{
    if (hasFixedPartitions(profile))
        return PartitionsPtr(new FixedEditUnitCountPartitionProvider(reader, container.bodySID, profile));
    return PartitionsPtr(new EstimatePartitionProvider(reader, container.bodySID));
}
catch (Exceptions::InvalidFormat const &)
{
    return PartitionsPtr();
}

}

IndexPtr indexTableProvider(Container const & container, Profile const & profile)
{
    Templates::auto_ptr<IndexTableCache> empty(new IndexTableCompleteCache(container.bodySID, container.indexSID));
    if (container.indexSID == 0)
        return empty;

    PositionKeeper const keeper(container.reader.source());
    Cache const cache(empty);
    Reader2 * const reader2 = reader2Of(container);
    if (reader2 != nullptr && container.isStreaming)
        return IndexPtr(new IndexTableStreamingProvider(cache, *reader2, container.indexSID, profile));

    IndexPtr estimate = reader2 != nullptr ? positionEstimate(container, *reader2, cache) : IndexPtr();
    if (estimate)
        return estimate;
    return IndexPtr(new IndexTableParseOnRequestProvider(cache, container.reader, container.indexSID));
}

PartitionsPtr partitionProvider(Container const & container, Profile const & profile)
{
    PositionKeeper const keeper(container.reader.source());
    Reader2 * const reader2 = reader2Of(container);
    if (reader2 != nullptr && reader2->rip())
    {
        PartitionsPtr provider = byRandomIndexPack(container, *reader2, profile);
        if (provider)
            return provider;
    }
    if (reader2 != nullptr && container.isStreaming)
        return PartitionsPtr(new StreamingPartitionProvider(*reader2, container.bodySID));
    return basicPartitionProvider(container);
}

PartitionsPtr basicPartitionProvider(Container const & container)
{
    return PartitionsPtr(new BasicPartitionProvider(container.reader, container.bodySID, container.isStreaming));
}

}}

#include "MXFIO/IndexTablePositionEstimateProvider.h"

#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "MXFIO/IndexPartitionSearch.h"
#include "MXFIO/IndexTableParseOnRequestProvider.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "Packs/PartitionPack.h"
#include "Packs/RandomIndexPack.h"

#include <utility>

namespace Vantry { namespace MXFIO {

class IndexTablePositionEstimateProvider::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Templates::SharedPtr<IndexTableCache> const & cache, Reader2 & reader) :
        search(reader, *cache), walk(cache, reader, cache->indexSID())
    {
        if (reader.rip().get() != nullptr)
            for (auto const & entry : reader.rip()->offsetIndexedMap())
                search.append(entry.first);
    }

    IndexPartitionSearch search;

    // Without anything to guess by, or by a pack that lies, the file is read
    // as it comes.
    IndexTableParseOnRequestProvider walk;
};

IndexTablePositionEstimateProvider::IndexTablePositionEstimateProvider(Templates::SharedPtr<IndexTableCache> cache,
                                                                       Reader2 & reader, unsigned int, unsigned int,
                                                                       Int64 firstEditUnit, Int64 lastEditUnit,
                                                                       Partition * footer) :
    IndexTableProviderBase(cache), impl_(new Impl(cache, reader))
{
    IndexPartitionSearch & search = impl_->search;
    if (footer != nullptr && firstEditUnit < lastEditUnit)
        search.know(footer->partitionPack().thisPartition(), {firstEditUnit, lastEditUnit});

    // Header and footer carry none of the index of their own, as a rule.
    UInt64 const partitions = search.size();
    if (partitions > 2 && lastEditUnit > 0)
        search.assumeMean(static_cast<UInt64>(lastEditUnit) / (partitions - 2));
}

IndexTablePositionEstimateProvider::~IndexTablePositionEstimateProvider()
{
    delete impl_;
}

Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>
IndexTablePositionEstimateProvider::fetch(Int64 editUnit)
{
    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> const found = impl_->search.find(editUnit);
    bool const isGuide = impl_->search.size() != 0 && !impl_->search.isMisled();
    return found.get() != nullptr || isGuide ? found : impl_->walk.segment(editUnit);
}

}}

#include "MXFIO/IndexTableParseOnRequestProvider.h"

#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "MXFIO/Partition.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/Reader.h"
#include "MXFIO/SegmentLoader.h"
#include "Packs/PartitionPack.h"

#include <utility>

namespace Vantry { namespace MXFIO {

IndexTableParseOnRequestProvider::IndexTableParseOnRequestProvider(Templates::SharedPtr<IndexTableCache> cache,
                                                                   Reader & reader, unsigned int indexSID) :
    IndexTableProviderBase(std::move(cache)), reader_(reader), indexSID_(indexSID), last_(nullptr), isExhausted_(false)
{
}

IndexTableParseOnRequestProvider::~IndexTableParseOnRequestProvider() = default;

Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> IndexTableParseOnRequestProvider::fetch(Int64 editUnit)
{
    PositionKeeper const keeper(reader_.source());
    while (!isExhausted_)
    {
        Partition * const partition = nextIndexPartition();
        if (partition == nullptr)
            break;

        loadSegments(reader_, *partition, indexSID_, cache());
        Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> found = cache().segment(editUnit);
        if (found.get() != nullptr)
            return found;
    }
    return Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>();
}

Partition * IndexTableParseOnRequestProvider::nextIndexPartition()
{
    if (last_ != nullptr)
        last_ = reader_.nextIndexPartition(last_, indexSID_);
    else
    {
        last_ = reader_.headerPartition();
        if (last_ != nullptr && last_->partitionPack().indexSID() != indexSID_)
            last_ = reader_.nextIndexPartition(last_, indexSID_);
    }
    isExhausted_ = last_ == nullptr;
    return last_;
}

}}

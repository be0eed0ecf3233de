#include "MXFIO/StreamingPartitionWalker.h"

#include "DataIO/RandomAccessDataSource.h"
#include "DataIO/StreamingDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/NotFound.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/Partition.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/Reader2.h"
#include "MXFIO/Unreadable.h"
#include "Packs/PartitionPack.h"

#include <algorithm>

namespace Vantry { namespace MXFIO {

namespace {

// What was written last may have been less than a whole partition pack.
UInt64 const OVERLAP = 65536;

}

StreamingPartitionWalker::StreamingPartitionWalker(Reader2 & reader, unsigned int bodySID) :
    reader_(reader), bodySID_(bodySID), walked_(0)
{
    refresh();

    PositionKeeper const keeper(reader.source());
    Partition * bodySIDPartition = reader.headerPartition();
    if (bodySIDPartition != nullptr && bodySIDPartition->partitionPack().bodySID() != bodySID)
        bodySIDPartition = reader.nextPartition(bodySIDPartition, bodySID);
    VANTRY_CHECK_TEXT(bodySIDPartition != nullptr, "bodySIDPartition != 0", NotFound,
                      "Unable to find partition for the bodySID specified.");
}

void StreamingPartitionWalker::refresh()
{
    if (auto * const growing = dynamic_cast<DataIO::StreamingDataSource *>(&reader_.source()))
        growing->refresh();
    catchUp();
}

void StreamingPartitionWalker::catchUp()
{
    DataIO::RandomAccessDataSource & source = reader_.source();
    UInt64 const end = source.absoluteOffset() + source.remaining();
    if (end == walked_)
        return;

    PositionKeeper const keeper(source);
    UInt64 const from = walked_ - std::min(walked_, OVERLAP);
    nothingIfUnreadable([&] { return reader_.lastPartition(end - std::min(from, end)); });
    walked_ = end;
}

UInt64 StreamingPartitionWalker::byteCount() const
{
    PositionKeeper const keeper(reader_.source());
    return nothingIfUnreadable([&] { return containerSize(reader_, bodySID_); });
}

}}

#include "MXFIO/BasicPartitionProvider.h"

#include "MXFIO/PartitionUtils.h"
#include "MXFIO/Reader2.h"

namespace Vantry { namespace MXFIO {

BasicPartitionProvider::BasicPartitionProvider(Reader & reader, unsigned int bodySID, bool fromLastLoaded) :
    reader_(reader), reader2_(dynamic_cast<Reader2 *>(&reader)), bodySID_(bodySID), fromLastLoaded_(fromLastLoaded)
{
}

BasicPartitionProvider::~BasicPartitionProvider() = default;

Partition * BasicPartitionProvider::partitionContaining(UInt64 bodyOffset, Int64)
{
    return reader2_ != nullptr ? partitionContainingRelativeOffset(*reader2_, bodySID_, bodyOffset, fromLastLoaded_)
                               : partitionContainingRelativeOffset(reader_, bodySID_, bodyOffset);
}

}}

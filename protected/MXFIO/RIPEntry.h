#pragma once

#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"

namespace Vantry { namespace MXFIO {

/// The partition that an entry of the random index pack leads to, null for
/// none. Offsets in a pack that the reader made by itself count the run-in.
inline Partition * partitionOfEntry(Reader2 & reader, UInt64 offset)
{
    Partition * const partition = reader.partitionAtOffset(offset);
    UInt64 const runIn = reader.runInSize();
    return partition != nullptr || runIn == 0 || offset < runIn ? partition : reader.partitionAtOffset(offset - runIn);
}

}}

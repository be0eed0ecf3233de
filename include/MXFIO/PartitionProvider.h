#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace MXFIO {

class Partition;

/// Finds the partition that holds a place of an essence container.
class VANTRY_EXPORT PartitionProvider
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~PartitionProvider();

    /// \param bodyOffset  bytes from the start of the container
    /// \param editUnit    the edit unit that is looked for there: a hint
    /// \return null when no partition holds it
    /// \throws Exceptions::InvalidFormat when partitions contradict each
    ///         other; Exceptions::IOError when the source fails.
    virtual Partition * partitionContaining(UInt64 bodyOffset, Int64 editUnit) = 0;
};

}}

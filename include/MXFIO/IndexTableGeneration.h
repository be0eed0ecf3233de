#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace MXFIO {

/// Which segments of an index table a partition gets.
enum IndexTableGeneration : Int32
{
    /// None.
    INDEX_NONE = 0,

    /// Those that no partition has had, from the last one written on. A table
    /// of one constant size is written once. Takes the least memory where both
    /// strategies are this one: segments are dropped once they are written.
    INDEX_FOLLOWING = 1,

    /// All that there are, in each partition.
    INDEX_REPEATED = 2,

    /// As INDEX_REPEATED. Behind the essence, a table of one constant size comes
    /// ahead of those of other containers.
    INDEX_REPEATED_IF_VARIABLE = 3
};

}}

#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace MXFIO {

/// What the segments of an index table are made of.
enum IndexTableSegmentType : Int32
{
    /// One element of constant size: neither delta nor index entries.
    INDEX_CONSTANT_ELEMENT = 0,

    /// Edit units of constant size: a delta entry for each element.
    INDEX_CONSTANT = 1,

    /// The same, and a delta entry for each fill item.
    INDEX_CONSTANT_WITH_FILL = 2,

    /// Edit units of any size: delta entries, and an index entry for each edit
    /// unit.
    INDEX_VARIABLE = 3,

    /// The same, and a delta entry for each fill item.
    INDEX_VARIABLE_WITH_FILL = 4,

    /// The simplest that can tell what the container holds.
    INDEX_AUTOMATIC = 5,

    /// The same, and a delta entry for each fill item.
    INDEX_AUTOMATIC_WITH_FILL = 6
};

}}

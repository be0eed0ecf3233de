#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry {

namespace KLV {
class Value;
}
namespace Types {
class LocalTag;
}

namespace IndexTables {

/// Is told of each element of an index table segment as it is read.
class VANTRY_EXPORT IndexTableSegmentListener
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~IndexTableSegmentListener();

    /// An element was met. It has not been read yet: the value stands at its
    /// first byte, and what is taken from it the segment does not see.
    virtual void elementMet(Types::LocalTag const & tag, KLV::Value & value) = 0;

protected:
    IndexTableSegmentListener() = default;
    IndexTableSegmentListener(IndexTableSegmentListener const &) = default;
    IndexTableSegmentListener & operator=(IndexTableSegmentListener const &) = default;
};

}
}

#pragma once

#include "Platform/Integers.h"
#include "Templates/Containers.h"

namespace Vantry {
namespace IndexTables {
class IndexTableSegment;
}

namespace MXFIO {

class IndexTableProvider;

/// Bytes of the edit units ahead of an index table segment, all of which are in
/// segments with edit units of one size. Sums are kept.
class PrecedingBytes
{
public:
    /// \return false when segments are missing in between
    /// \throws Exceptions::NotImplemented when one has an entry for each edit
    ///         unit.
    bool ahead(IndexTables::IndexTableSegment const & segment, IndexTableProvider & index, UInt64 & bytes);

private:
    Templates::map<Int64, UInt64> sums_;
};

}
}

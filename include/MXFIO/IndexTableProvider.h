#pragma once

#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace MXFIO {

/// Gives the index table segments of one essence container, from wherever it
/// has them.
class VANTRY_EXPORT IndexTableProvider
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~IndexTableProvider();

    /// The segment that covers an edit unit, counted from the start of the
    /// container; null when there is none.
    ///
    /// \throws Exceptions::IOError when the source fails.
    virtual Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> segment(Int64 editUnit) = 0;

    /// The segment that starts last of those known, null for none.
    virtual Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> lastSegment() = 0;
};

}}

#pragma once

#include "IndexTables/IndexTableSegment.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace Tests {

/// A segment of body SID 1.
inline Templates::auto_ptr<IndexTables::IndexTableSegment> indexSegment(Int64 start, Int64 duration)
{
    Templates::auto_ptr<IndexTables::IndexTableSegment> segment(new IndexTables::IndexTableSegment(4));
    segment->bodySID(1);
    segment->indexStartPosition(start);
    segment->indexDuration(duration);
    return segment;
}

}}

#pragma once

#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "Templates/auto_ptr.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"

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

/// The bytes of such a segment, with index SID 2.
inline Bytes indexBytes(Int64 start, Int64 duration)
{
    auto const segment = indexSegment(start, duration);
    segment->indexSID(2);
    return serialized(*segment);
}

/// A segment as it was read.
inline Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> readSegment(Bytes const & bytes)
{
    return Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>(
        new IndexTables::IndexTableSegmentWithGOPInfo(*BytesPacket(bytes), nullptr));
}

}}

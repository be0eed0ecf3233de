#include "MXFIO/SegmentLoader.h"

#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "KLV/Packet.h"
#include "MXFIO/IndexTableCache.h"
#include "MXFIO/Partition.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/Reader.h"
#include "Packs/PartitionPack.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace MXFIO {

namespace {

Int64 const NO_END = std::numeric_limits<Int64>::max();

IndexedRange rangeOf(IndexTables::IndexTableSegment const & segment)
{
    Int64 const start = segment.indexStartPosition().value();
    Int64 const duration = segment.indexDuration().value();
    bool const ends = duration != 0 && (start <= 0 || duration <= NO_END - start);
    return {start, ends ? start + duration : NO_END};
}

IndexedRange both(IndexedRange const & left, IndexedRange const & right)
{
    return {std::min(left.first, right.first), std::max(left.end, right.end)};
}

IndexedRange readSegments(Partition & partition, IndexTableCache & cache)
{
    using IndexTables::IndexTableSegmentWithGOPInfo;
    IndexedRange range = {NO_END, std::numeric_limits<Int64>::min()};
    try
    {
        partition.rewind();
        for (;;)
        {
            Templates::auto_ptr<KLV::Packet> const packet = partition.nextIndexTableSegmentsKLV();
            if (packet.get() == nullptr)
                break;

            Templates::SharedPtr<IndexTableSegmentWithGOPInfo> const segment(
                new IndexTableSegmentWithGOPInfo(*packet, nullptr));
            cache.add(segment);
            range = both(range, rangeOf(*segment));
        }
    }
    catch (Exceptions::BaseException const &)
    {
        // What was read up to here counts.
    }
    return range;
}

}

IndexedRange loadSegments(Reader & reader, Partition & partition, unsigned int indexSID, IndexTableCache & cache)
{
    Packs::PartitionPack const & pack = partition.partitionPack();
    if (pack.indexSID() != indexSID || pack.indexByteCount() == 0)
        return {0, 0};

    PositionKeeper const keeper(reader.source());
    return readSegments(partition, cache);
}

}}

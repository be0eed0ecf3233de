// Reads any values as index table segments that follow each other: what can be
// read is written in the size that it tells, is the same when it is read and
// written once more, and tells where its edit units stand.

#include "Exceptions/InvalidIndexSegment.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/NotImplemented.h"
#include "IndexTables/DeltaEntryArray.h"
#include "IndexTables/IndexEntryArray.h"
#include "IndexTables/IndexTable.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <vector>

namespace {

using namespace Vantry;
using namespace Vantry::IndexTables;
using Tests::Bytes;
using Tests::BytesPacket;

using Segment = std::unique_ptr<IndexTableSegmentWithGOPInfo>;

void demand(bool condition)
{
    if (!condition)
        std::abort();
}

Bytes packetOf(Bytes const & value)
{
    unsigned char const * const key = IndexTableSegment::key().rawBuffer();
    Bytes bytes(key, key + 16);
    for (std::size_t byte : {std::size_t(0x83), value.size() >> 16, value.size() >> 8, value.size()})
        bytes.push_back(static_cast<unsigned char>(byte));
    return bytes + value;
}

Segment read(Bytes const & bytes)
{
    BytesPacket packet(bytes);
    try
    {
        return std::make_unique<IndexTableSegmentWithGOPInfo>(*packet, nullptr);
    }
    catch (Exceptions::InvalidLength const &)
    {
        return nullptr;
    }
}

void writeAgain(IndexTableSegment const & segment)
{
    Bytes const once = Tests::serialized(segment);
    demand(once.size() == segment.serializedSize());
    Segment const again = read(once);
    demand(again && Tests::serialized(*again) == once);
}

// Stands between the values.
char const SEPARATOR[] = {'N', 'E', 'X', 'T'};

std::vector<Bytes> valuesOf(Bytes const & bytes)
{
    std::vector<Bytes> values;
    for (auto begin = bytes.begin();;)
    {
        auto const end = std::search(begin, bytes.end(), std::begin(SEPARATOR), std::end(SEPARATOR));
        if (end - begin <= 0xFFFFFF)
            values.emplace_back(begin, end);
        if (end == bytes.end())
            return values;
        begin = end + sizeof(SEPARATOR);
    }
}

void updateInfo(IndexTableSegmentWithGOPInfo const & segment, IndexTableSegmentWithGOPInfo const * previous,
                IndexTableSegmentWithGOPInfo const * next)
{
    try
    {
        segment.updateMissingInfo(previous, next);
    }
    catch (Exceptions::InvalidIndexSegment const &)
    {
    }
    catch (Exceptions::NotImplemented const &)
    {
    }
    for (unsigned int i = 0; i < segment.indexEntryCount(); ++i)
    {
        demand(segment.gopIndex2SizeMap().count(segment.gopInfo(i).gopIndex) == 1);
        segment.updateMissingIndex(i, &segment);
    }
}

void lookUp(std::vector<Bytes> const & values)
{
    IndexTable table(2, 0);
    for (Bytes const & value : values)
        if (Segment segment = read(packetOf(value)))
        {
            Int64 const start = segment->indexStartPosition().value();
            bool const isEmpty = segment->indexDuration().value() < 0;
            segment->bodySID(0);
            segment->indexSID(2);
            table.add(Templates::auto_ptr<IndexTableSegment>(segment.release()), false);
            IndexTableSegment const * const found = table.find(start);
            demand(isEmpty || (found && found->indexStartPosition().value() == start));
        }
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::vector<Bytes> const values = valuesOf(Bytes(data, data + size));
    std::vector<Segment> segments;
    for (Bytes const & value : values)
        segments.push_back(read(packetOf(value)));

    segments.push_back(nullptr);
    IndexTableSegmentWithGOPInfo const * previous = nullptr;
    for (std::size_t i = 0; i + 1 < segments.size(); previous = segments[i++].get())
        if (segments[i])
        {
            writeAgain(*segments[i]);
            updateInfo(*segments[i], previous, segments[i + 1].get());
        }
    lookUp(values);
    return 0;
}

#include "IndexTables/IndexTable.h"

#include "support/Failure.h"
#include "support/IndexSegments.h"

#include <random>

namespace Vantry { namespace IndexTables { namespace {

using Tests::indexSegment;

Int64 const LOWEST = std::numeric_limits<Int64>::min();
Int64 const HIGHEST = std::numeric_limits<Int64>::max();

struct Span
{
    Int64 start;
    Int64 duration;
};

// Start and duration of the segment that is found, or -1 and -1.
std::pair<Int64, Int64> found(IndexTable const & table, Int64 position)
{
    IndexTableSegment const * const segment = table.find(position);
    if (!segment)
        return {-1, -1};
    return {segment->indexStartPosition().value(), segment->indexDuration().value()};
}

using Pair = std::pair<Int64, Int64>;
Pair const NOTHING(-1, -1);

TEST(IndexTable, CountsRepeatedSegmentsOnce)
{
    IndexTable table(2, 1);
    table.add(indexSegment(0, 10), false);
    table.add(indexSegment(0, 10), false);
    EXPECT_EQ(table.size(), 1u);
    Templates::auto_ptr<IndexTableSegment> last = indexSegment(0, 10);
    IndexTableSegment * const expected = last.get();
    table.add(last, true);
    EXPECT_EQ(table.size(), 2u);
    EXPECT_EQ(table.find(3), expected);
}

TEST(IndexTable, TakesSegmentsOfItsStreamsAlone)
{
    IndexTable table(2, 1);
    Templates::auto_ptr<IndexTableSegment> segment = indexSegment(0, 10);
    segment->indexSID(3);
    EXPECT_FAILURE(InvalidID, "Trying to load a IndexTable segment into a IndexTable with different indexSIDs",
                   table.add(segment, false));
    EXPECT_EQ(segment.get(), nullptr);

    segment = indexSegment(0, 10);
    segment->bodySID(3);
    EXPECT_FAILURE(InvalidID, "Trying to load a IndexTable segment into a IndexTable with different bodySIDs",
                   table.add(segment, true));
    EXPECT_EQ(table.size(), 0u);
    EXPECT_EQ(table.indexSID(), 2u);
    EXPECT_EQ(table.bodySID(), 1u);
}

// Segments of any numbers, against a walk over all of them.
TEST(IndexTable, FindsWhatAWalkFinds)
{
    std::mt19937 random(1);
    Int64 const ends[] = {LOWEST, LOWEST + 1, -1, 0, 1, HIGHEST - 1, HIGHEST};
    auto const number = [&](Int64 below)
    {
        return random() % 16 ? Int64(random() % 400) - below : ends[random() % 7];
    };

    IndexTable table(2, 1);
    std::vector<Span> spans;
    for (int i = 0; i < 3000; ++i)
    {
        Int64 const duration = random() % 200 ? Int64(random() % 8) - 1 : number(0);
        Span const span = {number(200), duration != 0 || i % 500 == 0 ? duration : 1};
        spans.push_back(span);
        table.add(indexSegment(span.start, span.duration), true);

        Int64 const position = number(200);
        Span const * expected = nullptr;
        for (Span const & each : spans)
        {
            UInt64 const behindStart = UInt64(position) - UInt64(each.start);
            bool const covers = each.duration == 0 || (each.duration > 0 && behindStart < UInt64(each.duration));
            if (each.start <= position && covers && (!expected || each.start >= expected->start))
                expected = &each;
        }
        ASSERT_EQ(found(table, position), expected ? Pair(expected->start, expected->duration) : NOTHING) << i;
    }
}

}}}

// Groups of pictures of index table segments. Pictures are written as letters,
// groups in the order in which they are stored.

#include "IndexTables/IndexTableSegmentWithGOPInfo.h"

#include "IndexTables/IndexEntry.h"
#include "support/Failure.h"
#include "support/IndexSegments.h"

#include <memory>

namespace Vantry { namespace IndexTables { namespace {

using Tests::BytesPacket;
using Segment = std::unique_ptr<IndexTableSegmentWithGOPInfo>;

// A picture and where it is shown, from where it is stored.
struct Picture
{
    char kind; // I, P or B
    int temporalOffset = 0;
    int keyFrameOffset = 0;
};

IndexEntry entryOf(Picture const & picture)
{
    return IndexEntry(static_cast<signed char>(picture.temporalOffset),
                      static_cast<signed char>(picture.keyFrameOffset), picture.kind == 'I', false, picture.kind != 'I',
                      picture.kind == 'B', 0);
}

Segment segmentOf(Int64 start, std::vector<Picture> const & pictures, Int64 duration)
{
    auto const segment = Tests::indexSegment(start, duration);
    for (Picture const & picture : pictures)
        segment->addIndexEntry(segment->indexEntryCount(), entryOf(picture));
    BytesPacket packet(Tests::serialized(*segment));
    return Segment(new IndexTableSegmentWithGOPInfo(*packet, nullptr));
}

Segment segmentOf(Int64 start, std::vector<Picture> const & pictures)
{
    return segmentOf(start, pictures, static_cast<Int64>(pictures.size()));
}

// All that is told of a segment: "position:group" of each picture as stored,
// then as shown, then the groups, open ones with a star.
std::string told(Segment const & segment)
{
    std::string stored, shown, groups;
    for (unsigned int i = 0; i < segment->indexEntryCount(); ++i)
    {
        GOPInfo const & info = segment->gopInfo(i);
        stored += std::to_string(info.gopPosition) + ":" + std::to_string(info.gopIndex) + " ";
        shown += std::to_string(info.temporalGopPosition) + ":" + std::to_string(info.temporalGopIndex) + " ";
    }
    for (auto const & [index, group] : segment->gopIndex2SizeMap())
        groups += " " + std::to_string(index) + "=" + std::to_string(group.size) + (group.closed ? "" : "*");
    return stored + "| " + shown + "|" + groups;
}

TEST(GOPInfo, TellsTheGroupsOfASegment)
{
    std::tuple<char const *, std::vector<Picture>, char const *> const cases[] = {
        {"no pictures", {}, "| |"},
        {"key pictures alone", {{'I'}, {'I'}, {'I'}}, "0:0 0:1 0:2 | 0:0 0:1 0:2 | 0=1 1=1 2=1"},
        {"closed groups with B pictures",
         {{'I'}, {'P', 2, -1}, {'B', -1, -2}, {'B', -1, -3}, {'I'}, {'P', 0, -1}},
         "0:0 1:0 2:0 3:0 0:1 1:1 | 0:0 2:0 3:0 1:0 0:1 1:1 | 0=4 1=2"},
        {"an open group",
         {{'I'}, {'P', 0, -1}, {'I', 1}, {'B', -1, -3}, {'P', 0, -2}},
         "0:0 1:0 0:1 1:1 2:1 | 0:0 1:0 1:1 0:1 2:1 | 0=2 1=3*"},
        {"pictures ahead of the first group", {{'B'}, {'P'}, {'I'}}, "-1:0 -1:0 0:1 | -1:-1 -1:-1 0:1 | 0=2 1=1"},
        {"no start of a group", {{'P'}, {'P', 0, -5}}, "-1:0 -1:0 | -1:-1 -1:-1 | 0=2*"},
        {"offsets out of the segment", {{'I', -1}, {'P', 127, -1}}, "0:0 1:0 | -1:-1 -1:-1 | 0=2"},
    };
    for (auto const & [name, pictures, expected] : cases)
    {
        SCOPED_TRACE(name);
        EXPECT_EQ(told(segmentOf(0, pictures)), expected);
    }
    EXPECT_FAILURE(IndexOutOfBounds,
                   "index < gopInfoVector_.size (): The IndexTableSegment is smaller than the given index.",
                   segmentOf(0, {{'I'}})->gopInfo(1));
}

TEST(GOPInfo, CountsLongGroupsUpTo127)
{
    std::vector<Picture> pictures(300, {'P', 0, -1});
    pictures[0] = {'I'};
    Segment const segment = segmentOf(0, pictures);
    EXPECT_EQ(segment->gopInfo(127).gopPosition, 127);
    EXPECT_EQ(segment->gopInfo(299).gopPosition, 127);
    EXPECT_EQ(segment->gopIndex2SizeMap().at(0).size, 300u);
}

// A group of I P B B P B B, the first picture of the next, and cuts of it.
TEST(GOPInfo, JoinsGroupsAcrossSegments)
{
    std::vector<Picture> const stream = {{'I'},        {'P', 2, -1},  {'B', -1, -2}, {'B', -1, -3},
                                         {'P', 2, -4}, {'B', -1, -5}, {'B', -1, -6}, {'I'}};
    auto const part = [&](std::ptrdiff_t from, std::ptrdiff_t to)
    {
        return segmentOf(from, {stream.begin() + from, stream.begin() + to});
    };

    Segment const left = part(0, 2), middle = part(2, 5), right = part(5, 8);
    middle->updateMissingInfo(left.get(), right.get());
    EXPECT_EQ(told(left), "0:0 1:0 | 0:0 2:0 | 0=7");
    EXPECT_EQ(told(middle), "2:0 3:0 4:0 | 3:0 1:0 5:0 | 0=7");
    EXPECT_EQ(told(right), "5:0 6:0 0:1 | 6:0 4:0 0:1 | 0=7 1=1");

    std::string const once = told(left) + told(middle) + told(right);
    left->updateMissingInfo(nullptr, middle.get());
    middle->updateMissingInfo(left.get(), right.get());
    right->updateMissingInfo(middle.get(), nullptr);
    EXPECT_EQ(told(left) + told(middle) + told(right), once);
}

// The last group of the segment before is -1 here when it ends at the border.
TEST(GOPInfo, ShowsPicturesOfOneSegmentInAnother)
{
    Segment const left = segmentOf(10, {{'I'}, {'I'}, {'P', 1, -1}});
    Segment const right = segmentOf(13, {{'I', -1}, {'I'}});
    right->updateMissingInfo(left.get(), nullptr);
    EXPECT_EQ(told(left), "0:0 0:1 1:1 | 0:0 0:1 0:2 | 0=1 1=2 2=1");
    EXPECT_EQ(told(right), "0:0 0:1 | 1:-1 0:1 | -1=2 0=1 1=1");
}

TEST(GOPInfo, LearnsWhetherACutGroupIsClosed)
{
    Segment const left = segmentOf(0, {{'I'}, {'P', 0, -1}});
    Segment const closed = segmentOf(2, {{'B', 0, -2}, {'I'}});
    Segment const open = segmentOf(2, {{'B', 0, -3}, {'I'}});
    EXPECT_EQ(told(closed), "-1:0 0:1 | -1:-1 0:1 | 0=1* 1=1");
    closed->updateMissingInfo(left.get(), nullptr);
    EXPECT_EQ(told(closed), "2:0 0:1 | 2:0 0:1 | 0=3 1=1");
    open->updateMissingInfo(left.get(), nullptr);
    EXPECT_EQ(told(open), "2:0 0:1 | 2:0 0:1 | 0=3* 1=1");
}

TEST(GOPInfo, PassesOverNeighboursThatDontFit)
{
    Segment const segment = segmentOf(5, {{'P'}, {'I'}});
    std::string const before = told(segment);
    segment->updateMissingInfo(nullptr, nullptr);
    segment->updateMissingInfo(segmentOf(0, {{'I'}}, 5).get(), segmentOf(9, {{'I'}, {'I'}}, 1).get());
    segmentOf(5, {}, 2)->updateMissingInfo(segmentOf(0, {{'I'}}).get(), nullptr);
    EXPECT_EQ(told(segment), before);

    std::string const text = ": Trying to update non-consecutive IndexTableSegmentWithGOPInfo's.";
    EXPECT_FAILURE(InvalidIndexSegment,
                   ("previous -> indexStartPosition ().value () + previous -> indexDuration ().value () == "
                    "this -> indexStartPosition ().value ()" +
                    text)
                       .c_str(),
                   segment->updateMissingInfo(segmentOf(3, {{'I'}}).get(), nullptr));
    EXPECT_FAILURE(InvalidIndexSegment,
                   ("this -> indexStartPosition ().value () + this -> indexDuration ().value () == "
                    "next -> indexStartPosition ().value ()" +
                    text)
                       .c_str(),
                   segment->updateMissingInfo(nullptr, segmentOf(6, {{'I'}}).get()));
    EXPECT_FAILURE(NotImplemented,
                   "lastInfoFromPrevious.gopPosition >= 0: Not supported: IndexTableSegment duration is smaller than "
                   "GOP length.",
                   segment->updateMissingInfo(segmentOf(4, {{'P'}}).get(), nullptr));
}

TEST(GOPInfo, EstimatesWithoutNeighbours)
{
    Segment const first = segmentOf(0, {{'I'}, {'P'}, {'P'}});
    first->updateMissingIndex(0, first.get());
    first->updateMissingIndex(1, first.get());
    first->updateMissingIndex(3, first.get());
    EXPECT_EQ(told(first), "0:0 1:0 2:0 | 0:0 3:0 2:0 | 0=3");

    Segment const later = segmentOf(7, {{'I'}, {'P'}, {'P'}}, std::numeric_limits<Int64>::max());
    later->updateMissingIndex(1, later.get());
    EXPECT_EQ(told(later), "0:0 1:0 2:0 | 0:0 1:0 2:0 | 0=3");
}

}}}

#include "Utils/TimeCode.h"
#include "Utils/TimeCodeExtended.h"

#include "support/Failure.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace Vantry { namespace Utils { namespace {

// Every frame is looked at, but one in seven where sanitizers slow it down.
// Seven divides no number of frames in a second or minute.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
unsigned int const STEP = 7;
#else
unsigned int const STEP = 1;
#endif

char const * const PHASE_MESSAGE =
    "this -> multiplexFactor () != 1: Field Phase value is only supported for frame rate of 60 or 50.";

std::string text(TimeCode const & timeCode, bool showDropFrame = true, bool showFieldPhase = true)
{
    return Platform::wstringToString(timeCode.toString(showDropFrame, showFieldPhase).c_str()).c_str();
}

unsigned char byte(unsigned int value)
{
    return static_cast<unsigned char>(value);
}

bool same(TimeCode const & left, TimeCode const & right)
{
    return left == right && left.fieldPhase() == right.fieldPhase() && left.frameRate() == right.frameRate();
}

struct Day
{
    unsigned char rate;
    bool dropFrame;
    Int64 frames;
};

// Walks the day by the plain rule: count every frame whose number exists.
void walk(Day const & day)
{
    unsigned int const factor = day.rate >= 50 ? 2 : 1;
    Int64 counter = 0;
    TimeCode running(day.rate, 0, day.dropFrame);
    for (unsigned int second = 0; second < 86400; ++second)
        for (unsigned int frame = 0; frame < day.rate; ++frame)
        {
            bool const startsMinute = second % 60 == 0 && frame / factor < 2;
            if (day.dropFrame && startsMinute && second / 60 % 10 != 0)
                continue;

            if (counter % STEP == 0)
            {
                TimeCode const wanted(day.rate, byte(second / 3600), byte(second / 60 % 60), byte(second % 60),
                                      byte(frame / factor), day.dropFrame, frame % factor == 1);
                TimeCode const counted(day.rate, counter, day.dropFrame);
                if (!same(running, wanted) || !same(counted, wanted) || wanted.toFrameCounter() != UInt64(counter))
                    FAIL() << "frame " << counter << " is " << wanted << ", which counts " << wanted.toFrameCounter()
                           << "; it counts to " << counted << " and runs to " << running;
            }
            ++running;
            ++counter;
        }
    EXPECT_EQ(counter, day.frames);
    EXPECT_TRUE(same(running, TimeCode(day.rate, 0, day.dropFrame)));
    EXPECT_TRUE(
        same(TimeCode(day.rate, 3 * day.frames + 1800, day.dropFrame), TimeCode(day.rate, 1800, day.dropFrame)));
}

TEST(TimeCode, IsABijectionWithTheFrameCounterOverADay)
{
    Day const days[] = {
        {24, false, 2073600}, {25, false, 2160000}, {30, false, 2592000}, {30, true, 2589408},
        {50, false, 4320000}, {60, false, 5184000}, {60, true, 5178816},
    };
    for (Day const & day : days)
    {
        SCOPED_TRACE(std::to_string(day.rate) + (day.dropFrame ? " drop frame" : ""));
        walk(day);
    }
}

TEST(TimeCode, RefusesWhatIsNoTimeOfDay)
{
    char const * const dropMessage = "Drop frame only allowed in 30 or 60 fps timecode and not for 25 fps timecode.";
    EXPECT_FAILURE(InvalidValue, "frameRate_ > 0: Invalid frameRate.", TimeCode(0, -1, true));
    EXPECT_FAILURE(InvalidValue, dropMessage, TimeCode(25, 0, 0, 0, 0, true, false));
    EXPECT_FAILURE(InvalidValue, PHASE_MESSAGE, TimeCode(30, 24, 0, 0, 0, false, true));
    EXPECT_FAILURE(InvalidValue, "Invalid value of 01:02:03:25 for 50 fps timecode",
                   TimeCode(50, 1, 2, 3, 25, false, false));
    EXPECT_FAILURE(InvalidValue, "Invalid value of 00:01:00:01 for 60 fps drop frame timecode",
                   TimeCode(60, 0, 1, 0, 1, true, true));
}

TEST(TimeCode, SettersRefuseWithoutAChange)
{
    TimeCode timeCode(60, 1, 10, 0, 1, true, true);
    EXPECT_FAILURE(InvalidValue, "Invalid value of 24:10:00:01 for 60 fps timecode", timeCode.hours(24));
    EXPECT_FAILURE(InvalidValue, "Invalid value of 01:11:00:01 for 60 fps drop frame timecode", timeCode.minutes(11));
    EXPECT_EQ(text(timeCode), "01:10:00:01.1 (DF)");

    // Whether a number is left out is asked of the frames that are replaced.
    TimeCode plain(30, 0, 1, 0, 0, false, false);
    EXPECT_FAILURE(InvalidValue, "Invalid value of 00:01:00:00 for 30 fps drop frame timecode", plain.dropFrame(true));
    plain.frames(2);
    plain.dropFrame(true);
    plain.frames(0);
    EXPECT_EQ(text(plain), "00:01:00:00 (DF)");
    EXPECT_FAILURE(InvalidValue, "Invalid value of 00:01:00:05 for 30 fps drop frame timecode", plain.frames(5));
}

TEST(TimeCode, IsUndefinedByDefaultAndForNegativeCounters)
{
    TimeCode undefined(50, -1, true);
    EXPECT_EQ(text(undefined), "--:--:--:--");
    EXPECT_EQ(undefined.toFrameCounter(), 0u);
    EXPECT_TRUE(undefined == TimeCode());
}

TEST(TimeCode, ComparesAndRendersTheTimeOfDay)
{
    TimeCode timeCode(60, 1, 2, 3, 4, true, true);
    EXPECT_TRUE(timeCode == TimeCode(30, 1, 2, 3, 4, true, false));
    EXPECT_TRUE(timeCode < TimeCode(25, 1, 3, 0, 0, false, false));

    TimeCodeExtended::BinaryGroups groups;
    groups.groups[7] = 15;
    TimeCodeExtended const one(50, 1, 2, 3, 4, false, groups, true, true);
    groups.flag2 = true;
    EXPECT_FALSE(one == TimeCodeExtended(50, Int64(one.toFrameCounter()), false, groups, true, true));

    EXPECT_EQ(text(timeCode, false, true), "01:02:03:04.1");
    EXPECT_EQ(text(timeCode, true, false), "01:02:03:04 (DF)");
    EXPECT_EQ(text(TimeCode(25, 1, 2, 3, 4, false, false)), "01:02:03:04");
    std::ostringstream out;
    out << timeCode++ << ' ' << timeCode;
    EXPECT_EQ(out.str(), "01:02:03:04.1 (DF) 01:02:03:05.0 (DF)");
}

}}}

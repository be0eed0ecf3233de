#include "Essence/MPEG/S328MHelpers.h"

#include "Utils/TimeCode.h"
#include "support/Bytes.h"
#include "support/Failure.h"

#include <algorithm>

namespace Vantry { namespace Tests {

using namespace Essence::MPEG;
using namespace Essence::MPEG::S328MHelpers;
using Utils::TimeCode;

TEST(S328MHelpers, WriteAndReadTimeCodes)
{
    std::tuple<TimeCode, Templates::Rational<int>, bool, char const *> const cases[] = {
        {{25, 1, 2, 3, 4, false, false}, {25, 1}, true, "04 03 81 00 C0 00 20 00 10"},
        {{60, 23, 59, 59, 29, true, true}, {60000, 1001}, true, "69 D9 AC 91 C0 00 20 00 10"},
        {{50, 10, 11, 12, 13, false, true}, {50, 1}, false, "13 12 88 C8 40 00 20 00 10"},
        {{24, 0, 0, 0, 0, false, false}, {24000, 1001}, true, "00 00 80 00 40 00 20 00 10"},
    };
    for (auto const & [timeCode, rate, mode, bytes] : cases)
    {
        SCOPED_TRACE(bytes);
        S328M_TIME_CODE code = encodeS328MTimecode(timeCode, mode);
        EXPECT_EQ(Bytes(std::begin(code.bytes), std::end(code.bytes)), hex(bytes));

        // Binary groups, and marker bits of 0.
        Bytes const others = hex("00 00 80 00 7F FF FF FF F0");
        for (int i = 0; i < 9; ++i)
            code.bytes[i] ^= others[static_cast<std::size_t>(i)];
        TimeCode const read = decodeS328MTimecode(code, rate, mode);
        EXPECT_EQ(read, timeCode);
        EXPECT_EQ(read.frameRate(), timeCode.frameRate());
        EXPECT_EQ(read.fieldPhase(), timeCode.fieldPhase());
    }
}

TEST(S328MHelpers, HaveNoPlaceForDropFrameInTheOtherMode)
{
    S328M_TIME_CODE const code = encodeS328MTimecode({30, 0, 1, 0, 2, true, false}, false);
    EXPECT_EQ(code.bytes[0], 0x02);
    EXPECT_FALSE(decodeS328MTimecode(code, {30, 1}, false).dropFrame());
    EXPECT_EQ(encodeS328MTimecode({48, 0, 0, 0, 45, false, false}, true).bytes[0], 0x05) << "four tens are no flag";
}

TEST(S328MHelpers, RefuseWhatIsNoTimeCode)
{
    S328M_TIME_CODE code = encodeS328MTimecode({25, 1, 2, 3, 4, false, false}, true);
    for (Templates::Rational<int> const & rate : {Templates::Rational<int>(0), {-25, 1}, {256, 1}, {511, 2}})
        EXPECT_FAILURE(InvalidValue, "frameRate_ > 0: Invalid frameRate.", decodeS328MTimecode(code, rate, true));

    code.bytes[0] = 0x25;
    EXPECT_FAILURE(InvalidValue, "Invalid value of 01:02:03:25 for 25 fps timecode",
                   decodeS328MTimecode(code, {25, 1}, true));
    code.bytes[0] = 0x04;
    code.bytes[1] |= 0x80;
    EXPECT_FAILURE(InvalidValue,
                   "this -> multiplexFactor () != 1: Field Phase value is only supported for frame rate of 60 or 50.",
                   decodeS328MTimecode(code, {25, 1}, true));
}

}}

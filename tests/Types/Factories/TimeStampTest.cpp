#include "Types/Factories/TimeStamp.h"

#include "Platform/Time.h"
#include "Utils/Test/DeterministicScope.h"
#include "support/BytesSink.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Vantry { namespace Tests {

TEST(TimeStamp, IsOfNow)
{
    auto const minuteOf = [](Platform::Time const & time)
    {
        return std::make_tuple(time.year + 1900, time.month + 1, time.day, time.hour, time.minute);
    };

    auto const before = minuteOf(Platform::localtime());
    Types::Timestamp const now = Types::Factories::TimeStamp::getCurrentDate();
    auto const after = minuteOf(Platform::localtime());
    auto const minute =
        std::make_tuple(int(now.year()), int(now.month()), int(now.day()), int(now.hour()), int(now.minute()));
    EXPECT_TRUE(before <= minute && minute <= after);
}

TEST(TimeStamp, IsFixedInADeterministicScope)
{
    Utils::Test::DeterministicScope const scope;
    EXPECT_EQ(serialized(Types::Factories::TimeStamp::getCurrentDate()), hex("07 D3 01 01 01 00 00 00"));
}

}}

#include "Templates/Rational.h"

#include "support/Failure.h"

#include "Platform/BigUInt.h"
#include "Templates/SafeCast.h"

#include <limits>
#include <string>

using namespace Vantry;
using Platform::BigUInt;

namespace {

using Short = Templates::Rational<int>;
using Long = Templates::Rational<Int64>;

int const INT_LEAST = std::numeric_limits<int>::min();
Int64 const LEAST = std::numeric_limits<Int64>::min();
Int64 const MOST = std::numeric_limits<Int64>::max();

template <class T>
std::string text(Templates::Rational<T> const & value)
{
    return std::to_string(value.numerator()) + "/" + std::to_string(value.denominator());
}

}

TEST(Rational, StaysInLowestTerms)
{
    EXPECT_EQ(text(Short()), "0/1");
    EXPECT_EQ(text(Short(0, 0)), "0/1");
    EXPECT_EQ(text(Short(2, -4)), "-1/2");
    EXPECT_EQ(text(Short(-30000, -1001).assign(-3, -9)), "1/3");
    EXPECT_EQ(text(Short(INT_LEAST, INT_LEAST)), "1/1");
    EXPECT_EQ(text(Long(LEAST, 2)), "-4611686018427387904/1");

    EXPECT_FAILURE(InvalidValue, "denominator != 0: Division by 0.", Short(1, 0));
    EXPECT_FAILURE(InvalidValue, "Type size exceeded", Short(1, INT_LEAST));
    EXPECT_FAILURE(InvalidValue, "Type size exceeded", Long(LEAST, -1));
}

TEST(Rational, Calculates)
{
    Short value(1, 3);
    EXPECT_EQ(text(value += Short(1, 6)), "1/2");
    EXPECT_EQ(text(value -= 2), "-3/2");
    EXPECT_EQ(text(value *= Short(-4, 9)), "2/3");
    EXPECT_EQ(text(value /= Short(-2, 9)), "-3/1");
    EXPECT_EQ(text(1 + value * 2 / 3), "-1/1");

    EXPECT_EQ(text(Long(MOST, 3) * Long(3, MOST)), "1/1") << "the products are of 128 bits";
    EXPECT_EQ(text(Long(1, MOST) - Long(1, MOST)), "0/1");
    Long kept(MOST, 2);
    EXPECT_FAILURE(InvalidValue, "Type size exceeded", kept *= 3);
    EXPECT_FAILURE(InvalidValue, "denominator != 0: Division by 0.", kept /= 0);
    EXPECT_EQ(text(kept), "9223372036854775807/2") << "a failed operation changes nothing";
}

TEST(Rational, ComparesExactly)
{
    // Each is less than the next.
    Long const ASCENDING[] = {
        LEAST, Long(-MOST, 2), Long(-1, MOST), 0, Long(MOST - 2, MOST - 1), Long(MOST - 1, MOST), 1, MOST};
    for (Long const & left : ASCENDING)
        for (Long const & right : ASCENDING)
        {
            SCOPED_TRACE(text(left) + " and " + text(right));
            EXPECT_EQ(left < right, &left < &right);
            EXPECT_EQ(left > right, &left > &right);
            EXPECT_EQ(left <= right, &left <= &right);
            EXPECT_EQ(left >= right, &left >= &right);
            EXPECT_EQ(left == right, &left == &right);
            EXPECT_EQ(left != right, &left != &right);
        }
}

TEST(Rational, ComparesItsWholePartWithAWholeNumber)
{
    EXPECT_TRUE(Short(7, 2) < 4 && Short(7, 2) <= 4);
    EXPECT_TRUE(Short(7, 2) > 3 && Short(7, 2) >= 3 && Short(7, 2) != 3);
    EXPECT_TRUE(Short(8, 2) == 4 && Short(8, 2) <= 4 && Short(8, 2) >= 4);
    EXPECT_TRUE(Short(-1, 2) < 0);
    EXPECT_TRUE(Short(-3, 2) > -1);
}

TEST(BigUInt, MultipliesBeyond64Bits)
{
    UInt64 value = 0;
    EXPECT_TRUE((BigUInt(255, 256) * BigUInt(255, 256)).value(value));
    EXPECT_EQ(value, 65025u);

    UInt64 const TOP = std::numeric_limits<UInt64>::max();
    for (unsigned short const base : {2, 10, 256})
    {
        SCOPED_TRACE(base);
        BigUInt const top(TOP, base);
        BigUInt square = top;
        square *= square;
        EXPECT_FALSE(square.value(value));

        BigUInt const almost = top * BigUInt(TOP - 1, base);
        EXPECT_TRUE(almost < square && almost <= square && square > almost && square >= almost && almost != square);
        EXPECT_TRUE(top * BigUInt(0, base) == BigUInt(0, base)) << "leading zeros don't count";
    }

    EXPECT_FAILURE(InvalidValue, "base == other.base: Numbers of different bases can't meet",
                   BigUInt(1, 10) *= BigUInt(1, 2));
    EXPECT_FAILURE(InvalidValue, "base >= 2 && base <= 256: The base of a number must lie between 2 and 256",
                   BigUInt(1, 1));
}

TEST(SafeCast, PassesWhatTheTargetHolds)
{
    EXPECT_EQ((Templates::SafeCast<UInt32, Exceptions::IOError>(UInt64(0xFFFFFFFF))), 0xFFFFFFFFu);
    EXPECT_EQ((Templates::SafeCast<Int8, Exceptions::IOError>(Int64(-128))), -128);
    EXPECT_FAILURE(IOError, "Type size exceeded", (Templates::SafeCast<UInt32, Exceptions::IOError>(0x100000000)));
    EXPECT_FAILURE(InvalidValue, "Type size exceeded",
                   (Templates::SafeCast<Int64, Exceptions::InvalidValue>(0x8000000000000000u)));
}

#include "Utils/Calendar.h"

#include "Platform/Environment.h"
#include "Platform/Time.h"
#include "Platform/WideLiteral.h"
#include "Utils/ModifiedJulianDate.h"
#include "Utils/Time.h"
#include "support/Failure.h"

#include <ctime>
#include <limits>
#include <string>
#include <utility>

namespace Vantry { namespace Utils { namespace {

void timeZone(std::string const & rule)
{
    Platform::setenv(Platform::wide(u"TZ"), Platform::stringToWstring(rule.c_str()).c_str());
    Platform::tzset();
}

unsigned int daysSinceTheEpoch()
{
    return static_cast<unsigned int>(std::time(nullptr) / 86400);
}

TEST(Calendar, CountsTheDaysOfTwoCenturies)
{
    unsigned int wanted = 15385; // 1 January 1901
    for (int year = 1; year < 200; ++year)
        for (int dayOfYear = 0; dayOfYear < (year % 4 == 0 ? 366 : 365); ++dayOfYear)
        {
            Platform::Time day = {};
            day.year = year;
            day.dayOfYear = dayOfYear;
            ASSERT_EQ(modifiedJulianDate(day), wanted++) << "day " << dayOfYear << " of " << 1900 + year;
        }
    EXPECT_EQ(wanted, 88069u); // 1 January 2100

    timeZone("UTC0");
    unsigned int const before = daysSinceTheEpoch();
    unsigned int const today = Calendar::getModifiedJulianDate() - 40587;
    EXPECT_GE(today, before);
    EXPECT_LE(today, daysSinceTheEpoch());
}

TEST(Calendar, HasACodeForEachTimeZone)
{
    std::pair<char const *, unsigned int> const cases[] = {
        {"0", 0},       {"0:30", 10},  {"5:30", 15},  {"6", 6},       {"6:30", 26},   {"9", 9},    {"9:30", 29},
        {"10", 16},     {"11:30", 31}, {"12", 18},    {"12:30", 57},  {"-0:30", 63},  {"-1", 37},  {"-5:30", 58},
        {"-6", 32},     {"-6:30", 47}, {"-7", 25},    {"-11:30", 42}, {"-12", 20},    {"-13", 19}, {"-12:30", 57},
        {"-12:45", 50}, {"12:45", 57}, {"-5:45", 57}, {"0:15", 57},   {"-13:30", 57},
    };
    for (auto const & [hoursWest, code] : cases)
    {
        timeZone(std::string("ZONE") + hoursWest);
        EXPECT_EQ(Calendar::getTimeZone(), code) << hoursWest << " hours west";
    }
}

TEST(Time, ConvertsSecondsToEditUnits)
{
    using Seconds = Templates::Rational<Int64>;
    using Rate = Templates::Rational<int>;
    Int64 const most = std::numeric_limits<Int64>::max();

    std::tuple<Seconds, Rate, Int64> const cases[] = {
        {Seconds(-1), Rate(25), -1},
        {Seconds(10), Rate(25), 250},
        {Seconds(1001, 30000), Rate(30000, 1001), 1},
        {Seconds(1000, 30000), Rate(30000, 1001), 0},
        {Seconds(-3, 2), Rate(1), -1}, // toward 0
        {Seconds(-1, 25), Rate(25), -1},
        {Seconds(most, 48000), Rate(48000), most},
        {Seconds(most), Rate(1, 2000000000), 4611686018},
    };
    for (auto const & [seconds, editRate, editUnits] : cases)
        EXPECT_EQ(Time::convertSecondsToEditUnit(seconds, editRate), editUnits)
            << seconds.numerator() << '/' << seconds.denominator() << " s";

    EXPECT_EQ(Time::convertSecondsToEditUnit(Rate(7, 2), Rate(25)), 87);
    EXPECT_FAILURE(InvalidValue, "Type size exceeded", Time::convertSecondsToEditUnit(Seconds(most), Rate(2)));
}

}}}

#include "Platform/Environment.h"
#include "Platform/Time.h"

#include "support/Failure.h"

#include "Platform/WideLiteral.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <string>

using namespace Vantry;
using Platform::wide;
using Platform::wstringToString;

namespace {

// What the environment holds is put back at the end of a test.
class EnvironmentTest : public testing::Test
{
protected:
    EnvironmentTest()
    {
        ::unsetenv("TMP");
        ::unsetenv("TEMP");
        ::unsetenv("VANTRY_PLATFORM_NAME");
    }

    ~EnvironmentTest() override
    {
        for (char const * name : {"TMP", "TEMP", "VANTRY_PLATFORM_NAME", "TZ"})
            ::unsetenv(name);
        Platform::tzset();
    }
};

std::string text(Templates::wstring const & wideText)
{
    return wstringToString(wideText.c_str()).c_str();
}

// std::time lags behind the clock by up to a tick.
std::time_t secondsNow()
{
    return std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
}

}

TEST_F(EnvironmentTest, HoldsWideText)
{
    Templates::wstring value = wide(u"kept").text;
    EXPECT_FALSE(Platform::getenv(wide(u"TMP"), value));
    EXPECT_EQ(text(value), "kept");

    EXPECT_EQ(Platform::setenv(wide(u"TMP"), wide(u"/größe/𝄞")), 0);
    EXPECT_STREQ(std::getenv("TMP"), "/größe/𝄞");
    EXPECT_TRUE(Platform::getenv(wide(u"TMP"), value));
    EXPECT_EQ(text(value), "/größe/𝄞");
    EXPECT_EQ(Platform::setenv(wide(u"A=B"), wide(u"1")), -1);
}

TEST_F(EnvironmentTest, NamesTheTemporaryDirectory)
{
    Templates::wstring directory;
    EXPECT_FALSE(Platform::tempDir(directory));
    EXPECT_FAILURE(OSError, "No temporary directory defined in the system", Platform::tempDir());

    Platform::setenv(wide(u"TEMP"), wide(u"/second"));
    EXPECT_EQ(text(Platform::tempDir()), "/second");
    Platform::setenv(wide(u"TMP"), wide(u"/first"));
    EXPECT_EQ(text(Platform::tempDir()), "/first");
}

TEST_F(EnvironmentTest, GivesLocalTimeBothTimes)
{
    // Daylight saving from the first to the last day of each year.
    for (char const * zone : {"EAST-9:30", "WEST3:30SUMMER,J1/0,J365/23:59:59", "UTC0"})
    {
        SCOPED_TRACE(zone);
        Platform::setenv(wide(u"TZ"), Platform::stringToWstring(zone).c_str());
        Platform::tzset();
        EXPECT_EQ(Platform::getTimezone(), *zone == 'E' ? -570 : *zone == 'W' ? 210 : 0);

        for (auto const now : {&Platform::localtime, &Platform::utctime})
        {
            std::time_t const before = secondsNow();
            Platform::Time const time = now();
            std::time_t const after = secondsNow();

            std::tm fields = {};
            fields.tm_sec = time.second;
            fields.tm_min = time.minute;
            fields.tm_hour = time.hour;
            fields.tm_mday = time.day;
            fields.tm_mon = time.month;
            fields.tm_year = time.year;
            fields.tm_isdst = time.daylight;
            std::time_t const moment = std::mktime(&fields);
            EXPECT_TRUE(before <= moment && moment <= after);
            EXPECT_EQ(time.dayOfYear, fields.tm_yday);
            EXPECT_TRUE(time.milliseconds >= 0 && time.milliseconds < 1000);
        }
    }
}

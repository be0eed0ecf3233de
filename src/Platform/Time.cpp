#include "Platform/Time.h"

#include "Exceptions/Check.h"
#include "Exceptions/OSError.h"

#include <cerrno>
#include <ctime>

namespace Vantry { namespace Platform {

namespace {

// Returns 0, or the system's number for the failure.
int localTimeOfNow(Time & time)
{
    std::timespec now = {};
    std::tm fields = {};
    if (::clock_gettime(CLOCK_REALTIME, &now) != 0 || ::localtime_r(&now.tv_sec, &fields) == nullptr)
        return errno;

    time.milliseconds = static_cast<Int32>(now.tv_nsec / 1000000);
    time.second = fields.tm_sec;
    time.minute = fields.tm_min;
    time.hour = fields.tm_hour;
    time.day = fields.tm_mday;
    time.month = fields.tm_mon;
    time.year = fields.tm_year;
    time.daylight = fields.tm_isdst;
    time.dayOfYear = fields.tm_yday;
    return 0;
}

}

Time localtime()
{
    Time time = {};
    int const e = localTimeOfNow(time);
    VANTRY_CHECK(e == 0, OSError, "Failed to get localtime");
    return time;
}

Time utctime()
{
    Time time = {};
    int const e = localTimeOfNow(time);
    VANTRY_CHECK(e == 0, OSError, "Failed to get GMT time");
    return time;
}

void tzset()
{
    ::tzset();
}

Int32 getTimezone()
{
    // Nobody else may have read the time zone yet.
    ::tzset();
    return static_cast<Int32>(::timezone / 60);
}

}}

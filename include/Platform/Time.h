#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace Platform {

/// A moment of the calendar, broken down.
struct Time
{
    Int32 milliseconds; ///< 0 to 999
    Int32 second;       ///< 0 to 60, since a leap second may be counted
    Int32 minute;
    Int32 hour;
    Int32 day;       ///< of the month, from 1
    Int32 month;     ///< from 0
    Int32 year;      ///< since 1900
    Int32 daylight;  ///< above 0 while daylight saving is on
    Int32 dayOfYear; ///< from 0
};

/// Now, in the time zone of the process.
///
/// \throws Exceptions::OSError "e == 0: Failed to get localtime".
VANTRY_EXPORT Time localtime();

/// Now, in the time zone of the process as well: files have always been
/// stamped with local time here, and still are.
///
/// \throws Exceptions::OSError "e == 0: Failed to get GMT time".
VANTRY_EXPORT Time utctime();

/// Reads the time zone again, after the environment variable TZ was changed.
VANTRY_EXPORT void tzset();

/// Minutes by which the time zone lies west of UTC, daylight saving left out.
VANTRY_EXPORT Int32 getTimezone();

}}

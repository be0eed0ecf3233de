#pragma once

#include "Platform/Export.h"

/// The date of today as UMIDs carry it (SMPTE 330M), by the clock that
/// Platform::utctime gives.
namespace Vantry { namespace Utils { namespace Calendar {

/// Days since 17 November 1858. Right from 1901 to 2099.
///
/// \throws Exceptions::OSError when the system has no time.
VANTRY_EXPORT unsigned int getModifiedJulianDate();

/// The code of six bits that SMPTE 309M gives to the time zone of this
/// process, without daylight saving; 57, "unknown", for a zone that has none.
VANTRY_EXPORT unsigned char getTimeZone();

}}}

#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace Platform {

/// Milliseconds since some moment in the past. They never go back, whatever
/// happens to the time of day.
VANTRY_EXPORT UInt64 monotonicMilliseconds();

/// Has `clock` asked from now on, so that a test can let time pass as it
/// likes; null brings the system's clock back.
VANTRY_EXPORT void replaceMonotonicClock(UInt64 (*clock)());

}}

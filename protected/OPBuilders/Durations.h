#pragma once

#include "Platform/Integers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace OPBuilders {

using Rate = Templates::Rational<int>;

/// Durations are added up in seconds, since edit rates differ from track to
/// track; below 0 they aren't known.
using Seconds = Templates::Rational<Int64>;

inline Seconds unknownSeconds()
{
    return -1;
}

inline bool isKnown(Seconds const & seconds)
{
    return !(seconds < 0);
}

/// Edit units, -1 when they aren't known, in seconds.
///
/// \throws Exceptions::InvalidValue for a rate of 0, and for more than 64 bits
///         hold.
Seconds secondsOf(Int64 editUnits, Rate const & editRate);

/// Seconds in edit units, rounded up to whole ones; -1 when they aren't known.
///
/// \throws Exceptions::InvalidValue for more than 64 bits hold.
Int64 editUnitsOf(Seconds const & seconds, Rate const & editRate);

}}

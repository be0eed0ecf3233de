#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"

/// Conversions of time.
namespace Vantry { namespace Utils { namespace Time {

/// The whole edit units in a time, cut toward 0; -1 for -1/1 seconds, which
/// stand for an unknown time.
///
/// \param seconds   time in seconds
/// \param editRate  edit units per second
///
/// \throws Exceptions::InvalidValue when the number needs more than 64 bits.
VANTRY_EXPORT Int64 convertSecondsToEditUnit(Templates::Rational<Int64> const & seconds,
                                             Templates::Rational<int> const & editRate);
VANTRY_EXPORT Int64 convertSecondsToEditUnit(Templates::Rational<int> const & seconds,
                                             Templates::Rational<int> const & editRate);

}}}

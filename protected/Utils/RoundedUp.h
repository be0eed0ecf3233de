#pragma once

#include "Platform/Integers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace Utils {

/// The smallest whole number that isn't below a fraction.
inline Int64 roundedUp(Templates::Rational<Int64> const & value)
{
    Int64 const whole = value.numerator() / value.denominator();
    bool const hasRest = value.numerator() % value.denominator() > 0;
    return hasRest ? whole + 1 : whole;
}

}}

#pragma once

#include "Templates/Rational.h"

namespace Vantry { namespace Utils {

/// The least whole number that isn't below a fraction.
template <class T>
T roundedUp(Templates::Rational<T> const & value) noexcept
{
    T const whole = value.numerator() / value.denominator();
    bool const isCutOff = value.numerator() > 0 && value.numerator() % value.denominator() != 0;
    return isCutOff ? whole + 1 : whole;
}

}}

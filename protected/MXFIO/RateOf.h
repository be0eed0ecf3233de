#pragma once

#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Types/Rational.h"

namespace Vantry { namespace MXFIO {

/// A rate that a file tells; 0/1 when it tells none above 0.
inline Templates::Rational<Int64> rateOf(Types::Rational const * rate)
{
    if (rate == nullptr || rate->isUndefined())
        return Templates::Rational<Int64>();

    Templates::Rational<Int64> const value(rate->numerator(), rate->denominator());
    return value > 0 ? value : Templates::Rational<Int64>();
}

}}

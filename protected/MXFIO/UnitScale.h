#pragma once

#include "Platform/Integers.h"
#include "Templates/Rational.h"

#include <limits>

namespace Vantry { namespace MXFIO {

/// Whole numbers times a fraction that isn't below 0, rounded. What 64 bits
/// don't hold becomes the nearest that they do: positions are claims.
class UnitScale
{
public:
    explicit UnitScale(Templates::Rational<Int64> const & factor) noexcept :
        numerator_(factor.numerator()), denominator_(factor.denominator())
    {
    }

    Int64 floor(Int64 number) const noexcept { return fit(divide(product(number))); }
    Int64 ceiling(Int64 number) const noexcept { return fit(-divide(-product(number))); }

    /// Halves go up.
    Int64 nearest(Int64 number) const noexcept { return fit(divide(product(number) + denominator_ / 2)); }

private:
    __extension__ typedef __int128 Wide;

    Wide product(Int64 number) const noexcept { return Wide(number) * numerator_; }

    Wide divide(Wide dividend) const noexcept
    {
        Wide const quotient = dividend / denominator_;
        return quotient * denominator_ > dividend ? quotient - 1 : quotient;
    }

    static Int64 fit(Wide number) noexcept
    {
        Wide const most = std::numeric_limits<Int64>::max();
        return static_cast<Int64>(number > most ? most : number < -most ? -most : number);
    }

    Int64 numerator_;
    Int64 denominator_;
};

}}

#include "Templates/Rational.h"

#include "Exceptions/InvalidValue.h"
#include "Templates/SafeCast.h"

namespace Vantry { namespace Templates {

namespace {

template <class Wide>
Wide greatestCommonDivisor(Wide left, Wide right)
{
    while (right != 0)
    {
        Wide const rest = left % right;
        left = right;
        right = rest;
    }
    return left;
}

}

template <class T>
Rational<T> & Rational<T>::reduce(Wide numerator, Wide denominator)
{
    if (numerator == 0)
        return *this = Rational();
    VANTRY_CHECK(denominator != 0, InvalidValue, "Division by 0.");

    // Signed all the way: neither is ever the least number of double width.
    // The divisor takes the sign of the denominator, which makes it positive.
    Wide divisor = greatestCommonDivisor(numerator, denominator);
    if ((divisor < 0) != (denominator < 0))
        divisor = -divisor;

    T const reduced = SafeCast<T, Exceptions::InvalidValue>(numerator / divisor);
    denominator_ = SafeCast<T, Exceptions::InvalidValue>(denominator / divisor);
    numerator_ = reduced;
    return *this;
}

template class Rational<int>;
template class Rational<Int64>;

}}

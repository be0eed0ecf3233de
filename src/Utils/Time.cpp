#include "Utils/Time.h"

#include "Exceptions/InvalidValue.h"
#include "Templates/SafeCast.h"

namespace Vantry { namespace Utils { namespace Time {

Int64 convertSecondsToEditUnit(Templates::Rational<Int64> const & seconds, Templates::Rational<int> const & editRate)
{
    using Wide = Templates::DoubleWidth<Int64>::Type;

    if (seconds == -1)
        return -1;

    Wide const numerator = static_cast<Wide>(seconds.numerator()) * editRate.numerator();
    Wide const denominator = static_cast<Wide>(seconds.denominator()) * editRate.denominator();
    return Templates::SafeCast<Int64, Exceptions::InvalidValue>(numerator / denominator);
}

Int64 convertSecondsToEditUnit(Templates::Rational<int> const & seconds, Templates::Rational<int> const & editRate)
{
    return convertSecondsToEditUnit(Templates::Rational<Int64>(seconds.numerator(), seconds.denominator()), editRate);
}

}}}

#pragma once

#include "Platform/Time.h"

namespace Vantry { namespace Utils {

/// Days from 17 November 1858 to that day, 1901 to 2099: between two leap
/// days that fall out every fourth year is one.
inline unsigned int modifiedJulianDate(Platform::Time const & day)
{
    unsigned int const firstOfJanuary1901 = 15385;
    unsigned int const daysOfFourYears = 1461;

    auto const years = static_cast<unsigned int>(day.year - 1);
    auto const dayOfYear = static_cast<unsigned int>(day.dayOfYear);
    return firstOfJanuary1901 + years / 4 * daysOfFourYears + years % 4 * 365 + dayOfYear;
}

}}

#include "OPBuilders/Durations.h"

#include "Utils/RoundedUp.h"

namespace Vantry { namespace OPBuilders {

Seconds secondsOf(Int64 editUnits, Rate const & editRate)
{
    return editUnits < 0 ? unknownSeconds()
                         : Seconds(editUnits) * Seconds(editRate.denominator(), editRate.numerator());
}

Int64 editUnitsOf(Seconds const & seconds, Rate const & editRate)
{
    return isKnown(seconds) ? Utils::roundedUp(seconds * Seconds(editRate.numerator(), editRate.denominator())) : -1;
}

}}

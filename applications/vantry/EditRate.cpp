#include "EditRate.h"

#include <fmt/format.h>
#include <limits>

namespace Vantry { namespace Application {

namespace {

UInt32 const HIGHEST_FRAME_RATE = 1000;

/// Enough to tell 24 frames per second from 23.976.
UInt64 const MANY = 1000;

}

std::optional<EditRate> EditRate::of(Types::Rational const * rate)
{
    if (rate == nullptr || rate->numerator() <= 0 || rate->denominator() <= 0)
        return std::nullopt;
    return EditRate{static_cast<UInt32>(rate->numerator()), static_cast<UInt32>(rate->denominator())};
}

std::string EditRate::text() const
{
    return fmt::format("{}/{}", numerator, denominator);
}

UInt64 EditRate::convert(UInt64 count, EditRate const & other) const
{
    __extension__ using Wide = unsigned __int128;
    Wide const from = Wide(numerator) * other.denominator;
    Wide const to = Wide(denominator) * other.numerator;
    if (from == to)
        return count;

    // Both products have 62 bits, so that the first one may not fit.
    Wide const whole = count / from * to + count % from * to / from;
    Wide const largest = std::numeric_limits<UInt64>::max();
    return static_cast<UInt64>(whole < largest ? whole : largest);
}

bool EditRate::isOfSamples() const
{
    return numerator / denominator >= HIGHEST_FRAME_RATE;
}

bool EditRate::goesWith(EditRate const & other) const
{
    UInt64 const units = convert(MANY, other);
    bool const areFields = units == 2 * MANY || other.convert(MANY, *this) == 2 * MANY;
    return units == MANY || areFields || isOfSamples() || other.isOfSamples();
}

}}

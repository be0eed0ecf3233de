#pragma once

#include "Platform/Integers.h"
#include "Types/Rational.h"

#include <optional>
#include <string>

namespace Vantry { namespace Application {

/// Edit units per second; a rate of the program is above 0.
struct EditRate
{
    UInt32 numerator;
    UInt32 denominator;

    /// None for null and for a rate that isn't above 0.
    static std::optional<EditRate> of(Types::Rational const * rate);

    /// "25/1"
    std::string text() const;

    /// So many edit units of this rate in whole ones of another.
    UInt64 convert(UInt64 count, EditRate const & other) const;

    /// Whether the edit units are samples of sound: a packet holds many.
    bool isOfSamples() const;

    /// Whether edit units of both rates may count the same essence, as samples
    /// and fields do the frames. Other differences are slips of a writer.
    bool goesWith(EditRate const & other) const;
};

}}

#pragma once

#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace Analyzers {

/// How many samples of sound each edit unit has. Where the two rates are in
/// no whole ratio the counts differ by one at most, in a cycle: that of
/// Essence::Audio::SampleAlignmentVector where it has one, otherwise as if
/// each edit unit ended at the sample next to its end.
class SampleCadence
{
public:
    /// \param samplingRate  in hertz
    /// \throws Exceptions::InvalidValue for an edit rate above the sampling
    ///         rate, or not above 0.
    SampleCadence(unsigned int samplingRate, Templates::Rational<int> const & editRate);

    /// Samples of an edit unit, the first being 0.
    unsigned int samples(UInt64 editUnit) const;

    /// Edit units that so many samples reach into, from the first on.
    UInt64 editUnits(UInt64 samples) const;

    /// The largest count that there is.
    unsigned int maximum() const noexcept { return maximum_; }

    /// Whether all edit units have the same count.
    bool isConstant() const noexcept { return ratio_.denominator() == 1; }

private:
    Int64 samplesUpTo(Int64 editUnit) const;

    Templates::Rational<Int64> ratio_;
    unsigned int maximum_;

    // What each edit unit of a cycle has less than the maximum; empty where
    // the counts come from the ratio.
    Templates::vector<unsigned char> alignment_;
};

}}

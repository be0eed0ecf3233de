#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Rational.h"

namespace Vantry { namespace Essence {

/// Tells how many samples of sound each edit unit has, where the sampling
/// rate and the edit rate may be in no whole ratio.
///
/// The extra samples come as soon as their sum makes a whole: 48000 Hz at
/// 30000/1001 gives 1601, 1602, 1601, 1602, 1602 and so on.
class VANTRY_EXPORT SampleCountSelector
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Stands at the first edit unit. Both rates are above 0, in hertz.
    ///
    /// \throws Exceptions::InvalidValue for an edit rate of 0, and where the
    ///         ratio has no room in a rational of 32 bits.
    SampleCountSelector(Templates::Rational<int> const & samplingRate, Templates::Rational<int> const & editRate);

    /// Goes to the next edit unit.
    void nextElement();

    /// Samples of the present edit unit.
    unsigned short currentSampleCount() const noexcept { return sampleCount_; }

    /// The largest count that there is.
    unsigned short maximumSampleCount() const noexcept;

    /// Whether edit units differ in their counts.
    bool isVBE() const noexcept { return isVBE_; }

    /// Which edit unit of the repeating sequence comes next, the first being
    /// 1; 0 where they don't differ.
    unsigned int sequenceCount() const noexcept { return sequenceCount_; }

private:
    Templates::Rational<int> ratio_;
    unsigned short base_;
    Templates::Rational<int> accumulated_;
    unsigned short sampleCount_;
    bool isVBE_;
    unsigned int sequenceCount_;
};

}}

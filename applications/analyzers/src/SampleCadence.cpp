#include "Analyzers/SampleCadence.h"

#include "Essence/Audio/SampleAlignmentVector.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/NotImplemented.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace Analyzers {

namespace {

using Rate = Templates::Rational<int>;
using Ratio = Templates::Rational<Int64>;

Ratio ratioOf(unsigned int samplingRate, Rate const & editRate)
{
    Ratio const ratio(Int64(samplingRate) * editRate.denominator(), editRate.numerator());
    if (ratio.numerator() < ratio.denominator() || ratio.numerator() > std::numeric_limits<int>::max())
        throw Exceptions::InvalidValue("An edit unit of sound has one sample at least", __FILE__, __LINE__);
    return ratio;
}

Templates::vector<unsigned char> alignmentOf(unsigned int samplingRate, Rate const & editRate)
{
    Templates::vector<unsigned char> alignment;
    if (editRate != Rate(30000, 1001) && editRate != Rate(60000, 1001))
        return alignment;

    try
    {
        Essence::Audio::SampleAlignmentVector::fillSampleAlignmentVector(alignment, samplingRate, editRate);
    }
    catch (Exceptions::NotImplemented const &)
    {
        // There is no cycle for this sampling rate.
    }
    return alignment;
}

}

SampleCadence::SampleCadence(unsigned int samplingRate, Rate const & editRate) :
    ratio_(ratioOf(samplingRate, editRate)),
    maximum_(static_cast<unsigned int>((ratio_.numerator() + ratio_.denominator() - 1) / ratio_.denominator())),
    alignment_(alignmentOf(samplingRate, editRate))
{
}

unsigned int SampleCadence::samples(UInt64 editUnit) const
{
    if (isConstant())
        return maximum_;
    if (!alignment_.empty())
        return maximum_ - alignment_[editUnit % alignment_.size()];

    auto const inCycle = static_cast<Int64>(editUnit % static_cast<UInt64>(ratio_.denominator()));
    return static_cast<unsigned int>(samplesUpTo(inCycle + 1) - samplesUpTo(inCycle));
}

UInt64 SampleCadence::editUnits(UInt64 samples) const
{
    // A cycle has a whole number of samples.
    auto const cycle = alignment_.empty() ? static_cast<UInt64>(ratio_.denominator()) : alignment_.size();
    UInt64 const samplesPerCycle =
        cycle / static_cast<UInt64>(ratio_.denominator()) * static_cast<UInt64>(ratio_.numerator());
    UInt64 const cycles = samples / samplesPerCycle;
    UInt64 inCycle = 0;
    for (UInt64 left = samples % samplesPerCycle; left != 0; ++inCycle)
        left -= std::min<UInt64>(left, this->samples(inCycle));
    return cycles * cycle + inCycle;
}

// The sample next to the start of the edit unit.
Int64 SampleCadence::samplesUpTo(Int64 editUnit) const
{
    return (2 * editUnit * ratio_.numerator() + ratio_.denominator()) / (2 * ratio_.denominator());
}

}}

#include "Essence/SampleCountSelector.h"

namespace Vantry { namespace Essence {

namespace {

int wholePart(Templates::Rational<int> const & value)
{
    return value.numerator() / value.denominator();
}

}

SampleCountSelector::SampleCountSelector(Templates::Rational<int> const & samplingRate,
                                         Templates::Rational<int> const & editRate) :
    ratio_(samplingRate / editRate),
    base_(static_cast<unsigned short>(wholePart(ratio_))),
    accumulated_(ratio_ - wholePart(ratio_)),
    sampleCount_(base_),
    isVBE_(ratio_.denominator() != 1),
    sequenceCount_(isVBE_ ? 2 : 0)
{
}

void SampleCountSelector::nextElement()
{
    if (!isVBE_)
        return;

    accumulated_ += ratio_ - wholePart(ratio_);
    bool const isWhole = accumulated_ >= 1;
    if (isWhole)
        --accumulated_;
    sampleCount_ = static_cast<unsigned short>(isWhole ? base_ + 1 : base_);
    sequenceCount_ = !accumulated_ ? 1 : sequenceCount_ + 1;
}

unsigned short SampleCountSelector::maximumSampleCount() const noexcept
{
    return static_cast<unsigned short>(isVBE_ ? base_ + 1 : base_);
}

}}

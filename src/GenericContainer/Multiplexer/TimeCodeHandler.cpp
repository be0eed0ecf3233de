#include "GenericContainer/Multiplexer/TimeCodeHandler.h"

#include "Exceptions/InvalidValue.h"
#include "GenericContainer/SystemMetadataPack.h"
#include "Templates/SafeCast.h"
#include "Utils/RoundedUp.h"

#include <utility>

namespace Vantry { namespace GenericContainer { namespace Multiplexer {

namespace {

Utils::TimeCode nextOf(TimeCodeProvider & provider)
{
    return provider.nextTimeCode();
}

Utils::TimeCodeExtended nextOf(TimeCodeExtendedProvider & provider)
{
    return provider.nextTimeCodeExtended();
}

Utils::TimeCode atRate(Utils::TimeCode const & timeCode, unsigned char frameRate)
{
    return {frameRate,         timeCode.hours(),     timeCode.minutes(),   timeCode.seconds(),
            timeCode.frames(), timeCode.dropFrame(), timeCode.fieldPhase()};
}

Utils::TimeCodeExtended atRate(Utils::TimeCodeExtended const & timeCode, unsigned char frameRate)
{
    return {frameRate,
            timeCode.hours(),
            timeCode.minutes(),
            timeCode.seconds(),
            timeCode.frames(),
            timeCode.dropFrame(),
            timeCode.binaryGroups(),
            timeCode.colorFrame(),
            timeCode.fieldPhase()};
}

}

TimeCodeHandlerBase::~TimeCodeHandlerBase() = default;

template <class TimeCode, class Provider, class Sequential>
TimeCodeHandlerCommon<TimeCode, Provider, Sequential>::TimeCodeHandlerCommon(TimeCode const & start) :
    needsSequential_(true), timeCode_(start), provider_(new Sequential(start))
{
}

template <class TimeCode, class Provider, class Sequential>
TimeCodeHandlerCommon<TimeCode, Provider, Sequential>::TimeCodeHandlerCommon(Templates::SharedPtr<Provider> provider) :
    needsSequential_(false), provider_(std::move(provider))
{
}

template <class TimeCode, class Provider, class Sequential>
void TimeCodeHandlerCommon<TimeCode, Provider, Sequential>::setRate(Templates::Rational<int> const & rate)
{
    auto const frameRate = Templates::SafeCast<unsigned char, Exceptions::InvalidValue>(Utils::roundedUp(rate));
    if (needsSequential_)
        updateFrameRate(frameRate);
    else
        provider_->roundedFrameRate(frameRate);
}

template <class TimeCode, class Provider, class Sequential>
void TimeCodeHandlerCommon<TimeCode, Provider, Sequential>::update(SystemMetadataPack & pack)
{
    timeCode_ = nextOf(*provider_);
    pack.userTimecode(timeCode_);
}

template <class TimeCode, class Provider, class Sequential>
Utils::TimeCode const & TimeCodeHandlerCommon<TimeCode, Provider, Sequential>::current() const
{
    return timeCode_;
}

template <class TimeCode, class Provider, class Sequential>
void TimeCodeHandlerCommon<TimeCode, Provider, Sequential>::updateFrameRate(unsigned char frameRate)
{
    if (timeCode_.isDefined())
        timeCode_ = atRate(timeCode_, frameRate);
    provider_ = Templates::SharedPtr<Provider>(new Sequential(timeCode_));
}

template class TimeCodeHandlerCommon<Utils::TimeCode, TimeCodeProvider, SequentialTimeCode>;
template class TimeCodeHandlerCommon<Utils::TimeCodeExtended, TimeCodeExtendedProvider, SequentialTimeCodeExtended>;

Templates::auto_ptr<TimeCodeHandlerBase> makeTimeCodeHandler(Utils::TimeCode const & start)
{
    using Handler = Templates::auto_ptr<TimeCodeHandlerBase>;
    if (auto const * const extended = dynamic_cast<Utils::TimeCodeExtended const *>(&start))
        return Handler(new TimeCodeHandlerExtended(*extended));
    return Handler(new TimeCodeHandler(start));
}

Templates::auto_ptr<TimeCodeHandlerBase> makeTimeCodeHandler(Templates::SharedPtr<TimeCodeProvider> const & provider)
{
    using Handler = Templates::auto_ptr<TimeCodeHandlerBase>;
    if (auto const extended = provider.dynamicCast<TimeCodeExtendedProvider>())
        return Handler(new TimeCodeHandlerExtended(extended));
    return Handler(new TimeCodeHandler(provider));
}

}}}

#pragma once

#include "GenericContainer/SequentialTimeCode.h"
#include "Platform/Allocation.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"
#include "Utils/TimeCode.h"
#include "Utils/TimeCodeExtended.h"

namespace Vantry { namespace GenericContainer {

class SystemMetadataPack;

namespace Multiplexer {

/// Puts time codes into the packs of a system item.
class TimeCodeHandlerBase
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~TimeCodeHandlerBase();

    /// Sets how many content packages there are in a second.
    ///
    /// \throws Exceptions::InvalidValue when there is no such time code as the
    ///         current one at this rate.
    virtual void setRate(Templates::Rational<int> const & rate) = 0;

    /// Puts the next time code into the pack.
    virtual void update(SystemMetadataPack & pack) = 0;

    /// The last time code; before the first, the one to start with.
    virtual Utils::TimeCode const & current() const = 0;
};

/// Takes time codes from a provider, or from a sequence of its own.
template <class TimeCode, class Provider, class Sequential>
class TimeCodeHandlerCommon : public TimeCodeHandlerBase
{
public:
    /// Counts up from `start`.
    explicit TimeCodeHandlerCommon(TimeCode const & start);

    explicit TimeCodeHandlerCommon(Templates::SharedPtr<Provider> provider);

    void setRate(Templates::Rational<int> const & rate) override;
    void update(SystemMetadataPack & pack) override;
    Utils::TimeCode const & current() const override;

private:
    void updateFrameRate(unsigned char frameRate);

    bool needsSequential_;
    TimeCode timeCode_;
    Templates::SharedPtr<Provider> provider_;
};

using TimeCodeHandler = TimeCodeHandlerCommon<Utils::TimeCode, TimeCodeProvider, SequentialTimeCode>;
using TimeCodeHandlerExtended =
    TimeCodeHandlerCommon<Utils::TimeCodeExtended, TimeCodeExtendedProvider, SequentialTimeCodeExtended>;

/// The handler that counts up from a time code, of its kind.
Templates::auto_ptr<TimeCodeHandlerBase> makeTimeCodeHandler(Utils::TimeCode const & start);

/// The handler for a provider, of its kind.
Templates::auto_ptr<TimeCodeHandlerBase> makeTimeCodeHandler(Templates::SharedPtr<TimeCodeProvider> const & provider);

}
}}

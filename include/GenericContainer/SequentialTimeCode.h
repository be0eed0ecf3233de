#pragma once

#include "GenericContainer/TimeCodeExtendedProvider.h"
#include "GenericContainer/TimeCodeProvider.h"
#include "Platform/Export.h"
#include "Utils/TimeCode.h"
#include "Utils/TimeCodeExtended.h"

namespace Vantry { namespace GenericContainer {

/// What counts up from a start, which comes first.
template <class TimeCode, class Provider>
class SequentialTimeCodeCommon : public Provider
{
public:
    explicit SequentialTimeCodeCommon(TimeCode const & start) : timeCode_(start) {}

    /// Does nothing: the start has its rate.
    void roundedFrameRate(unsigned char) override {}

protected:
    TimeCode const & nextTimeCodeCommon()
    {
        if (!isFirst_)
            ++timeCode_;
        isFirst_ = false;
        return timeCode_;
    }

private:
    TimeCode timeCode_;
    bool isFirst_ = true;
};

/// Time codes without a jump.
class VANTRY_EXPORT SequentialTimeCode : public SequentialTimeCodeCommon<Utils::TimeCode, TimeCodeProvider>
{
public:
    explicit SequentialTimeCode(Utils::TimeCode const & start);

    Utils::TimeCode nextTimeCode() override;
};

/// Time codes without a jump that all have the user bits of the first.
class VANTRY_EXPORT SequentialTimeCodeExtended
    : public SequentialTimeCodeCommon<Utils::TimeCodeExtended, TimeCodeExtendedProvider>
{
public:
    explicit SequentialTimeCodeExtended(Utils::TimeCodeExtended const & start);

    Utils::TimeCode nextTimeCode() override;
    Utils::TimeCodeExtended nextTimeCodeExtended() override;
};

}}

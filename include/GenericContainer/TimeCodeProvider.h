#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Utils/TimeCode.h"

namespace Vantry { namespace GenericContainer {

/// Gives the user time code of a system item, one for each content package.
class VANTRY_EXPORT TimeCodeProvider
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~TimeCodeProvider();

    virtual Utils::TimeCode nextTimeCode() = 0;

    /// Tells how many content packages there are in a second, rounded up,
    /// before the first is asked for.
    virtual void roundedFrameRate(unsigned char frameRate) = 0;
};

}}

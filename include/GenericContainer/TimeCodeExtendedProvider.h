#pragma once

#include "GenericContainer/TimeCodeProvider.h"
#include "Utils/TimeCodeExtended.h"

namespace Vantry { namespace GenericContainer {

/// Gives time codes with user bits. They are asked for in place of plain ones.
class VANTRY_EXPORT TimeCodeExtendedProvider : public TimeCodeProvider
{
public:
    ~TimeCodeExtendedProvider() override;

    virtual Utils::TimeCodeExtended nextTimeCodeExtended() = 0;
};

}}

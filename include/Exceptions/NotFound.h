#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// What was looked for isn't there. Code 31.
class VANTRY_EXPORT NotFound : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

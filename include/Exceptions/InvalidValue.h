#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// An argument breaks a rule. Code 16.
class VANTRY_EXPORT InvalidValue : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

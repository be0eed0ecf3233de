#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// Nothing is registered that makes this type. Code 29.
class VANTRY_EXPORT NoFactory : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

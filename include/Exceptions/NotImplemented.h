#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// An operation that doesn't exist in this version. Code 37.
class VANTRY_EXPORT NotImplemented : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

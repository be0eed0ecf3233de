#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The operating system refused a service. Code 41.
class VANTRY_EXPORT OSError : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

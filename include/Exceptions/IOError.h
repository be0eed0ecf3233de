#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A file or stream failed, or the system refused it. Code 26.
class VANTRY_EXPORT IOError : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

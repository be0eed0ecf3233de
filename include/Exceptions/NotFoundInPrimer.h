#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The primer pack doesn't have this entry. Code 32.
class VANTRY_EXPORT NotFoundInPrimer : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

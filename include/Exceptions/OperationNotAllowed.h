#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The object doesn't allow this operation now. Code 42.
class VANTRY_EXPORT OperationNotAllowed : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The object doesn't allow this change. Code 5.
class VANTRY_EXPORT InvalidChange : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

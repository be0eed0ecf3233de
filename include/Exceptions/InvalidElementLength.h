#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A length doesn't fit its field or its element. Code 7.
class VANTRY_EXPORT InvalidElementLength : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

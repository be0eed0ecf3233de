#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// No KLV key stands within the bytes that were searched. Code 24.
class VANTRY_EXPORT KeyNotFound : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

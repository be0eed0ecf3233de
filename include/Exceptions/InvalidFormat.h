#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// Bytes or text don't follow their coding. Code 8.
class VANTRY_EXPORT InvalidFormat : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// Memory, or another resource of the process, ran out. Code 2.
class VANTRY_EXPORT BadAlloc : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

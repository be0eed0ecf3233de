#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// An index lies at or behind the end of a sequence. Code 4.
class VANTRY_EXPORT IndexOutOfBounds : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

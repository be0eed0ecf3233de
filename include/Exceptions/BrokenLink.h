#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A reference leads to nothing. Code 3.
class VANTRY_EXPORT BrokenLink : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A type is not the one that is expected. Code 40.
class VANTRY_EXPORT InvalidType : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

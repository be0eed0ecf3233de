#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// An identifier has no meaning here. Code 9.
class VANTRY_EXPORT InvalidID : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

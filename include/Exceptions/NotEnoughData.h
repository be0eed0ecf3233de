#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The source ended before the data did. Code 30.
class VANTRY_EXPORT NotEnoughData : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

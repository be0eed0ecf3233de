#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// Two things claim one universal label. Code 34.
class VANTRY_EXPORT UniversalLabelCollision : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

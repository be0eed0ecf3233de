#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The object is not in a state for this. Code 43.
class VANTRY_EXPORT InvalidState : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

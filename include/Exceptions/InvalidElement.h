#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// An element doesn't fit the collection it is meant for. Code 6.
class VANTRY_EXPORT InvalidElement : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A KLV key is not the one that is expected. Code 14.
class VANTRY_EXPORT InvalidKey : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

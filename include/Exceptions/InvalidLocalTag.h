#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A local tag can't be used for this. Code 13.
class VANTRY_EXPORT InvalidLocalTag : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

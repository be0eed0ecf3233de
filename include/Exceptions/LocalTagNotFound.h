#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A local tag is not known. Code 27.
class VANTRY_EXPORT LocalTagNotFound : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

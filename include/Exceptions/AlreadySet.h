#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// Something that is set once was set again. Code 17.
class VANTRY_EXPORT AlreadySet : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// An index table segment contradicts itself or its table. Code 10.
class VANTRY_EXPORT InvalidIndexSegment : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

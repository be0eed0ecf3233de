#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A partition's status is not one of those allowed. Code 22.
class VANTRY_EXPORT InvalidPartitionStatus : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

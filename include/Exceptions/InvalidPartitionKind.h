#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A partition is neither header nor body nor footer. Code 21.
class VANTRY_EXPORT InvalidPartitionKind : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The text of a label can't be read. Code 35.
class VANTRY_EXPORT InvalidLabel : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

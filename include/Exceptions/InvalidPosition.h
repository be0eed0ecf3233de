#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A position or edit unit lies outside what there is. Code 12.
class VANTRY_EXPORT InvalidPosition : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

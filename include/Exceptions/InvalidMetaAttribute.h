#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The schema has no such attribute, or refuses it. Code 15.
class VANTRY_EXPORT InvalidMetaAttribute : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The schema has no such element, or refuses it. Code 19.
class VANTRY_EXPORT InvalidMetaElement : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

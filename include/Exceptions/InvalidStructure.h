#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// Parts of a file or of metadata don't fit together. Code 23.
class VANTRY_EXPORT InvalidStructure : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

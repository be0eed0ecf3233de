#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// A metadata set is not of the kind that is expected. Code 18.
class VANTRY_EXPORT InvalidMetadataSet : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

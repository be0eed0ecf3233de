#pragma once

#include "Exceptions/BaseException.h"

namespace Vantry { namespace Exceptions {

/// The schema forbids this reference between sets. Code 28.
class VANTRY_EXPORT MetadataSetReferenceNotAllowed : public BaseException
{
public:
    using BaseException::BaseException;

    Int32 errorCode() const override;
};

}}

#pragma once

#include "Exceptions/Check.h"

namespace Vantry { namespace Templates {

/// A number in a type that may be too small for it:
///
///     UInt32 const size = Templates::SafeCast<UInt32, Exceptions::IOError>(byteCount);
///
/// \throws Exception "Type size exceeded" when the target type can't hold the
///         value.
template <class Target, class Exception, class Source>
Target SafeCast(Source value)
{
    Target const result = static_cast<Target>(value);
    bool const sameSign = (result < Target(0)) == (value < Source(0));
    if (!sameSign || static_cast<Source>(result) != value)
        Exceptions::fail<Exception>("Type size exceeded", __FILE__, __LINE__);
    return result;
}

}}

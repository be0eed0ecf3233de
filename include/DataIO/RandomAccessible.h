#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO {

/// Something with a position that can be set.
class VANTRY_EXPORT RandomAccessible
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~RandomAccessible();

    /// Moves to `position`, or to the end where that comes first, and
    /// returns where it is now.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    virtual UInt64 seek(UInt64 position) = 0;
};

}}

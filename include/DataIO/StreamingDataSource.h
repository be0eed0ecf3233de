#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO {

/// A source that another process may still be writing to.
class VANTRY_EXPORT StreamingDataSource
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~StreamingDataSource();

    /// Looks up again how many bytes there are, and returns their number.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    virtual UInt64 refresh() = 0;
};

}}

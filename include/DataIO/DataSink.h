#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO {

/// Where a stream of bytes goes.
class VANTRY_EXPORT DataSink
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~DataSink();

    /// Writes all `howMuch` bytes.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    virtual void write(unsigned char const * source, UInt64 howMuch) = 0;

    /// Where the next byte goes, counted from the start of the stream.
    virtual UInt64 absoluteOffset() const = 0;
};

}}

#pragma once

#include "DataIO/Slice.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace DataIO {

/// A stream of bytes that comes in slices, so that nothing is copied.
class VANTRY_EXPORT SliceSource
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~SliceSource();

    /// A slice of about `howMuch` bytes: the source may give less, and some
    /// give more. An empty one means that the stream has ended or that there
    /// is nothing yet, and `endOfStream` tells which.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    virtual Templates::auto_ptr<Slice> read(UInt64 howMuch) = 0;

    /// Where the next byte comes from.
    virtual UInt64 absoluteOffset() const = 0;

    /// Whether no more bytes can be got.
    virtual bool endOfStream() const = 0;

    /// Passes over up to `howMuch` bytes and returns how many there were.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    virtual UInt64 skip(UInt64 howMuch) = 0;
};

}}

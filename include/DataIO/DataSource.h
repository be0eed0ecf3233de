#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO {

/// A stream of bytes that is read once, from front to back.
///
/// Positions are counted in bytes from the start of the underlying stream.
class VANTRY_EXPORT DataSource
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~DataSource();

    /// Where the next byte comes from.
    virtual UInt64 absoluteOffset() const = 0;

    /// Whether no more bytes can be got.
    virtual bool endOfStream() const = 0;

    /// Reads up to `howMuch` bytes and returns how many there were. Fewer
    /// mean that the stream has ended, which is no failure.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    virtual UInt64 read(unsigned char * destination, UInt64 howMuch) = 0;

    /// Passes over up to `howMuch` bytes and returns how many there were.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    virtual UInt64 skip(UInt64 howMuch) = 0;
};

}}

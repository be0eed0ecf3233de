#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO {

class BlockHolder;

/// A buffer that several slices share. It counts its references and destroys
/// itself with the last, on whatever thread that happens.
class VANTRY_EXPORT Block
{
public:
    VANTRY_CLASS_ALLOCATION

protected:
    virtual ~Block();

public:
    /// The first byte.
    virtual unsigned char const * data() const = 0;
    virtual unsigned char * data() = 0;

    /// Capacity in bytes.
    virtual UInt64 size() const = 0;

    /// Adds a reference and returns how many there are.
    virtual int addReference() = 0;

    /// Drops a reference and returns how many are left; at zero the block is
    /// gone.
    virtual int release() = 0;

    /// A new block of `size` bytes from where this one came from.
    ///
    /// \throws Exceptions::BadAlloc.
    virtual BlockHolder createBlock(UInt64 size) = 0;
};

}}

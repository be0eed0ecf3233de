#pragma once

#include "DataIO/BlockHolder.h"

namespace Vantry { namespace DataIO {

/// Makes blocks.
class VANTRY_EXPORT BlockFactory
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~BlockFactory();

    /// A block of `size` bytes whose one reference the result holds.
    ///
    /// \throws Exceptions::BadAlloc.
    virtual BlockHolder create(UInt64 size) = 0;
};

}}

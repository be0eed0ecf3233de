#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace Platform {

/// The one allocator of the library: everything it hands out comes from, and
/// returns to, the framework's memory manager, so that memory may cross the
/// border between modules in either direction.
///
/// Safe between threads.
class VANTRY_EXPORT malloc_alloc
{
public:
    /// Memory for `size` bytes, aligned for any plain type; null when there
    /// is none. Class-level `operator new` and the containers of Templates
    /// turn null into Exceptions::BadAlloc.
    static void * allocate(UInt64 size);

    /// Takes back what `allocate` or `reallocate` gave. Null is allowed, and
    /// the size is not looked at.
    static void deallocate(void * pointer, UInt64 size);

    /// Grows or shrinks a piece of memory to `newSize` bytes, perhaps at
    /// another address; null leaves the old piece as it was.
    static void * reallocate(void * pointer, UInt64 oldSize, UInt64 newSize);
};

}}

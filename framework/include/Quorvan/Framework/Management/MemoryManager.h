#pragma once

#include "Quorvan/Framework/Export.h"

#include <cstddef>

namespace Quorvan { namespace Framework { namespace Management {

class IRegisteredObject;

/// The one allocator of the process, and the register of the objects that
/// its modules share. Any thread may use it.
class QUORVAN_EXPORT MemoryManager
{
public:
    MemoryManager() = delete;

    /// Memory for `size` bytes, aligned for any plain type; null when there
    /// is none.
    static void * allocate(std::size_t size);

    /// Takes memory back; null is allowed.
    static void deallocate(void * pointer);

    /// Grows or shrinks a piece of memory, perhaps at another address. Null
    /// when that fails, and the old piece then stays as it was.
    static void * reallocate(void * pointer, std::size_t size);

    /// The object registered under `name`. The first caller has it made by
    /// `create`, which must not register anything itself; each caller holds
    /// one registration from then on.
    ///
    /// \throws std::bad_alloc, and what `create` throws; nothing is
    ///         registered then.
    static IRegisteredObject * registerObject(char const * name, IRegisteredObject * (*create)());

    /// Drops one registration. The last one deletes the object. An unknown
    /// name is passed over.
    static void unregisterObject(char const * name);
};

}}}

#include "Platform/Allocation.h"

#include "Exceptions/BadAlloc.h"

namespace Vantry { namespace Platform {

void * allocateOrThrow(std::size_t size)
{
    // A request for nothing may be answered with null, which is no failure.
    void * const memory = malloc_alloc::allocate(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw Exceptions::BadAlloc("Out of memory", __FILE__, __LINE__);
    return memory;
}

}}

#include "Platform/malloc_alloc.h"

#include <Quorvan/Framework/Management/MemoryManager.h>

namespace Vantry { namespace Platform {

using Quorvan::Framework::Management::MemoryManager;

void * malloc_alloc::allocate(UInt64 size)
{
    return MemoryManager::allocate(size);
}

void malloc_alloc::deallocate(void * pointer, UInt64)
{
    MemoryManager::deallocate(pointer);
}

void * malloc_alloc::reallocate(void * pointer, UInt64, UInt64 newSize)
{
    return MemoryManager::reallocate(pointer, newSize);
}

}}

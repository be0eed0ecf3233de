#pragma once

#include "Platform/Export.h"
#include "Platform/malloc_alloc.h"

#include <cstddef>

namespace Vantry { namespace Platform {

/// Memory from malloc_alloc, never null.
///
/// \throws Exceptions::BadAlloc when there is none.
VANTRY_EXPORT void * allocateOrThrow(std::size_t size);

}}

/// Declares the allocation functions of a class: sized forms go to
/// Platform::malloc_alloc, placement forms return their pointer unchanged. A
/// derived class inherits them.
#define VANTRY_CLASS_ALLOCATION                                              \
    static void * operator new(std::size_t size)                             \
    {                                                                        \
        return ::Vantry::Platform::allocateOrThrow(size);                    \
    }                                                                        \
    static void * operator new[](std::size_t size)                           \
    {                                                                        \
        return ::Vantry::Platform::allocateOrThrow(size);                    \
    }                                                                        \
    static void * operator new(std::size_t, void * place) noexcept           \
    {                                                                        \
        return place;                                                        \
    }                                                                        \
    static void * operator new[](std::size_t, void * place) noexcept         \
    {                                                                        \
        return place;                                                        \
    }                                                                        \
    static void operator delete(void * pointer, std::size_t size) noexcept   \
    {                                                                        \
        ::Vantry::Platform::malloc_alloc::deallocate(pointer, size);         \
    }                                                                        \
    static void operator delete[](void * pointer, std::size_t size) noexcept \
    {                                                                        \
        ::Vantry::Platform::malloc_alloc::deallocate(pointer, size);         \
    }                                                                        \
    static void operator delete(void *, void *) noexcept {}                  \
    static void operator delete[](void *, void *) noexcept {}

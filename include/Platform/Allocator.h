#pragma once

#include "Platform/Allocation.h"

#include <cstddef>
#include <limits>

namespace Vantry { namespace Platform {

/// malloc_alloc in the form that standard containers take.
template <class T>
class Allocator
{
public:
    using value_type = T;

    Allocator() noexcept = default;

    template <class U>
    Allocator(Allocator<U> const &) noexcept
    {
    }

    /// \throws Exceptions::BadAlloc when there is no memory.
    T * allocate(std::size_t count)
    {
        std::size_t const most = std::numeric_limits<std::size_t>::max() / sizeof(T);
        std::size_t const size = count > most ? most * sizeof(T) : count * sizeof(T);
        return static_cast<T *>(allocateOrThrow(size));
    }

    void deallocate(T * pointer, std::size_t count) noexcept { malloc_alloc::deallocate(pointer, count * sizeof(T)); }

    template <class U>
    bool operator==(Allocator<U> const &) const noexcept
    {
        return true;
    }

    template <class U>
    bool operator!=(Allocator<U> const &) const noexcept
    {
        return false;
    }
};

}}

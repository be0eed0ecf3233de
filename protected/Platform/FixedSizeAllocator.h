#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Synchronization/SpinLock.h"

#include <cstddef>
#include <new>

namespace Vantry { namespace Platform {

/// Cells of one size, for objects that come and go at the rate of packets. A
/// cell that was given back is handed out again; the general allocator gets
/// it only when the allocator goes.
///
/// One module makes the object and all modules of the process use it: the
/// order of the virtual functions and of the fields is a contract. Any thread
/// may call it.
template <std::size_t CELL_SIZE>
class VANTRY_EXPORT FixedSizeAllocator_T
{
public:
    VANTRY_CLASS_ALLOCATION

    FixedSizeAllocator_T() = default;
    FixedSizeAllocator_T(FixedSizeAllocator_T const &) = delete;
    FixedSizeAllocator_T & operator=(FixedSizeAllocator_T const &) = delete;

    /// Frees the cells that were given back; the others are lost to it.
    virtual ~FixedSizeAllocator_T()
    {
        while (head_ != nullptr)
            malloc_alloc::deallocate(pop(), CELL_SIZE);
    }

    /// A cell, never null.
    ///
    /// \throws Exceptions::BadAlloc.
    virtual void * allocate()
    {
        Synchronization::SpinLock::Guard const guard(lock_);
        return head_ != nullptr ? pop() : allocateOrThrow(CELL_SIZE);
    }

    /// Takes a cell back; null isn't allowed.
    virtual void deallocate(void * cell) noexcept
    {
        Synchronization::SpinLock::Guard const guard(lock_);
        head_ = new (cell) Link{head_};
    }

private:
    // What the first bytes of a free cell hold.
    struct Link
    {
        Link * next;
    };

    static_assert(CELL_SIZE >= sizeof(Link), "a free cell holds a link");

    void * pop() noexcept
    {
        Link * const cell = head_;
        head_ = cell->next;
        return cell;
    }

    Link * head_ = nullptr;
    Synchronization::SpinLock lock_;
};

}}

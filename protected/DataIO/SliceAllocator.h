#pragma once

#include <cstddef>

namespace Vantry { namespace DataIO {

/// Cells for slices, at the rate of packets: each thread keeps a few of its
/// own, so that most come and go without a lock. When a thread ends, its
/// cells go back to the SliceAllocatorRegisteredObject of the process.
///
/// Any thread may free a cell, at any time up to the end of the process.
class SliceAllocator
{
public:
    static std::size_t const CELL_SIZE = 48;

    SliceAllocator() = delete;

    /// \throws Exceptions::BadAlloc.
    static void * allocate();

    static void deallocate(void * cell) noexcept;
};

}}

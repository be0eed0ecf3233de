#include "DataIO/SliceAllocator.h"

#include "Exceptions/BadAlloc.h"
#include "Exceptions/Check.h"
#include "Platform/FixedSizeAllocator.h"
#include "Quorvan/Framework/Management/IRegisteredObject.h"
#include "Quorvan/Framework/Management/MemoryManager.h"

#include <mutex>
#include <new>

namespace Vantry { namespace DataIO {

using Quorvan::Framework::Management::IRegisteredObject;
using Quorvan::Framework::Management::MemoryManager;

// The cells of all slices of the process. Each module that makes slices gets
// the same object, so that another module may free them.
class SliceAllocatorRegisteredObject final : public Platform::FixedSizeAllocator_T<SliceAllocator::CELL_SIZE>,
                                             public IRegisteredObject
{
};

namespace {

char const * const REGISTERED_NAME = "quorvan_memory_manager_slice_name";

// A thread gets this many cells at once, and keeps up to twice as many.
unsigned int const BATCH = 64;

struct Cell
{
    Cell * next;
};

class CellList
{
public:
    bool empty() const noexcept { return head_ == nullptr; }
    unsigned int count() const noexcept { return count_; }

    void push(void * cell) noexcept
    {
        head_ = new (cell) Cell{head_};
        ++count_;
    }

    void * pop() noexcept
    {
        Cell * const cell = head_;
        head_ = cell->next;
        --count_;
        return cell;
    }

private:
    Cell * head_ = nullptr;
    unsigned int count_ = 0;
};

// This module's hold on the object that the process shares. It is made with
// the first slice; when the module has let go of it, cells come from where
// the object got them, and go there: slices of static objects live on.
class SharedCells
{
public:
    /// Adds `howMany` cells to the list; those that came before a failure
    /// stay on it.
    ///
    /// \throws Exceptions::BadAlloc.
    void take(CellList & list, unsigned int howMany)
    {
        std::lock_guard<std::mutex> const lock(mutex_);
        if (allocator_ == nullptr && !closed_)
            allocator_ = registered();

        for (; howMany > 0; --howMany)
            list.push(allocator_ != nullptr ? allocator_->allocate()
                                            : Platform::allocateOrThrow(SliceAllocator::CELL_SIZE));
    }

    void give(CellList & list, unsigned int howMany) noexcept
    {
        std::lock_guard<std::mutex> const lock(mutex_);
        for (; howMany > 0; --howMany)
            if (allocator_ != nullptr)
                allocator_->deallocate(list.pop());
            else
                Platform::malloc_alloc::deallocate(list.pop(), SliceAllocator::CELL_SIZE);
    }

    void close() noexcept
    {
        std::lock_guard<std::mutex> const lock(mutex_);
        closed_ = true;
        if (allocator_ == nullptr)
            return;
        allocator_ = nullptr;
        MemoryManager::unregisterObject(REGISTERED_NAME);
    }

private:
    using Allocator = Platform::FixedSizeAllocator_T<SliceAllocator::CELL_SIZE>;

    static Allocator * registered()
    {
        try
        {
            IRegisteredObject * const object = MemoryManager::registerObject(
                REGISTERED_NAME, [] { return static_cast<IRegisteredObject *>(new SliceAllocatorRegisteredObject); });
            return static_cast<SliceAllocatorRegisteredObject *>(object);
        }
        catch (std::bad_alloc const &)
        {
            VANTRY_FAIL(BadAlloc, "Out of memory");
        }
    }

    std::mutex mutex_;
    Allocator * allocator_ = nullptr;
    bool closed_ = false;
};

// Ready before any constructor runs, and without a destructor.
SharedCells sharedCells;

struct CloseAtUnload
{
    ~CloseAtUnload() { sharedCells.close(); }
} closeAtUnload;

// Needs neither construction nor destruction, so it is good for the whole
// life of a thread: for the slices of other objects that end with it too.
struct ThreadCells
{
    enum class State
    {
        UNUSED,
        USED,
        GIVEN_BACK
    };

    CellList list;
    unsigned int capacity = 0;
    State state = State::UNUSED;
};

thread_local ThreadCells threadCells;

struct GiveBackAtEndOfThread
{
    // A call makes the thread construct it, and destroy it at its end.
    void arm() noexcept { static_cast<void>(this); }

    ~GiveBackAtEndOfThread()
    {
        ThreadCells & cells = threadCells;
        cells.state = ThreadCells::State::GIVEN_BACK;
        cells.capacity = 0;
        sharedCells.give(cells.list, cells.list.count());
    }
};

thread_local GiveBackAtEndOfThread giveBackAtEndOfThread;

void useThreadCells(ThreadCells & cells)
{
    giveBackAtEndOfThread.arm();
    cells.state = ThreadCells::State::USED;
    cells.capacity = 2 * BATCH;
}

[[gnu::noinline]] void * allocateFromShared(ThreadCells & cells)
{
    if (cells.state == ThreadCells::State::UNUSED)
        useThreadCells(cells);

    sharedCells.take(cells.list, cells.capacity != 0 ? BATCH : 1);
    return cells.list.pop();
}

[[gnu::noinline]] void deallocateToShared(ThreadCells & cells, void * cell) noexcept
{
    if (cells.state == ThreadCells::State::UNUSED)
        useThreadCells(cells);

    cells.list.push(cell);
    if (cells.list.count() > cells.capacity)
        sharedCells.give(cells.list, cells.capacity != 0 ? BATCH : 1);
}

}

void * SliceAllocator::allocate()
{
    ThreadCells & cells = threadCells;
    return cells.list.empty() ? allocateFromShared(cells) : cells.list.pop();
}

void SliceAllocator::deallocate(void * cell) noexcept
{
    ThreadCells & cells = threadCells;
    if (cells.list.count() < cells.capacity)
        cells.list.push(cell);
    else
        deallocateToShared(cells, cell);
}

}}

#include "DataIO/Chain.h"
#include "Platform/FixedSizeAllocator.h"
#include "Quorvan/Framework/Management/IRegisteredObject.h"
#include "Quorvan/Framework/Management/MemoryManager.h"
#include "support/Slices.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <set>

namespace Vantry { namespace Tests {

using DataIO::Chain;
using DataIO::Slice;
using Quorvan::Framework::Management::IRegisteredObject;
using Quorvan::Framework::Management::MemoryManager;
using Templates::auto_ptr;

namespace {

UInt64 const MANY = 1000;

CountingBlocks blocks;

// Fills a chain with slices that don't merge.
void fill(Chain & chain, Slice const & slice, UInt64 count)
{
    while (count-- > 0)
        chain.push_back(auto_ptr<Slice>(new Slice(slice)));
}

using Cells = std::set<void const *>;

void note(Chain const & chain, Cells & cells)
{
    for (Slice const & slice : chain)
        cells.insert(&slice);
}

}

TEST(SliceAllocator, LosesNoCellWhenThreadsEnd)
{
    Slice const slice(*blocks.slice(counting(8)));
    Cells cells;

    for (int round = 0; round < 50; ++round)
    {
        Chain chain;
        std::thread([&] { fill(chain, slice, MANY); }).join();
        note(chain, cells);
        if (round % 2 == 0)
            std::thread([&] { chain.clear(); }).join();
    }

    // Cells that other tests left behind may have come first.
    EXPECT_LE(cells.size(), 4 * MANY) << "dropped on another thread than made";
}

TEST(SliceAllocator, LetsThreadsDropSlicesOfOneBlock)
{
    int const alive = blocks.alive();
    for (int round = 0; round < 20; ++round)
    {
        Chain chains[2];
        auto_ptr<Slice> slice = blocks.slice(counting(8));
        for (Chain & chain : chains)
            fill(chain, *slice, MANY);
        slice.reset();

        onThreads(2,
                  [&](unsigned int t)
                  {
                      while (!chains[t].empty())
                          chains[t].erase(chains[t].begin());
                  });
    }
    EXPECT_EQ(blocks.alive(), alive);
}

TEST(SliceAllocator, SharesItsCellsWithOtherModules)
{
    char const * const NAME = "quorvan_memory_manager_slice_name";
    delete new Slice;

    auto * const shared = dynamic_cast<Platform::FixedSizeAllocator_T<48> *>(MemoryManager::registerObject(
        NAME, []() -> IRegisteredObject * { throw std::logic_error("the library has registered it already"); }));
    ASSERT_NE(shared, nullptr);

    // What another module made is freed here, and serves it again.
    std::vector<void *> cells;
    for (UInt64 i = 0; i < MANY; ++i)
        cells.push_back(shared->allocate());
    std::thread(
        [&]
        {
            for (void * cell : cells)
                delete new (cell) Slice;
        })
        .join();

    Cells const made(cells.begin(), cells.end());
    for (void *& cell : cells)
        EXPECT_EQ(made.count(cell = shared->allocate()), 1u);
    for (void * cell : cells)
        shared->deallocate(cell);
    MemoryManager::unregisterObject(NAME);
}

}}

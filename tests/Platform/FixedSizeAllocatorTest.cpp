#include "Platform/FixedSizeAllocator.h"

#include "Platform/CurrentThread.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <thread>
#include <vector>

using namespace Vantry;

namespace {

using Allocator = Platform::FixedSizeAllocator_T<48>;

}

TEST(FixedSizeAllocator, HandsTheLastFreedCellOutFirst)
{
    Allocator allocator;
    void * const first = allocator.allocate();
    void * const second = allocator.allocate();
    ASSERT_NE(first, second);
    std::memset(first, 0xFF, 48);
    std::memset(second, 0xFF, 48);

    allocator.deallocate(first);
    allocator.deallocate(second);
    EXPECT_EQ(allocator.allocate(), second);
    EXPECT_EQ(allocator.allocate(), first);
    allocator.deallocate(first);
    allocator.deallocate(second);
}

TEST(FixedSizeAllocator, GivesNoCellToTwoThreads)
{
    Allocator allocator;
    std::vector<UInt32> ids(4);
    std::vector<int> disturbed(ids.size());
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < ids.size(); ++t)
        threads.emplace_back(
            [&, t]
            {
                ids[t] = Platform::currentThreadId();
                for (int round = 0; round < 2000; ++round)
                {
                    auto * const cell = static_cast<UInt32 *>(allocator.allocate());
                    cell[5] = ids[t];
                    std::this_thread::yield();
                    disturbed[t] += cell[5] != ids[t];
                    allocator.deallocate(cell);
                }
            });
    for (std::thread & thread : threads)
        thread.join();

    EXPECT_EQ(disturbed, std::vector<int>(ids.size()));
    EXPECT_EQ(std::set<UInt32>(ids.begin(), ids.end()).size(), ids.size());
}

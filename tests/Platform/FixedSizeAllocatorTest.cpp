#include "Platform/FixedSizeAllocator.h"

#include "Platform/CurrentThread.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <set>

using namespace Vantry;

TEST(FixedSizeAllocator, GivesNoCellToTwoThreads)
{
    Platform::FixedSizeAllocator_T<48> allocator;
    std::vector<UInt32> ids(4);
    std::vector<int> disturbed(ids.size());
    Tests::onThreads(4,
                     [&](unsigned int t)
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
    EXPECT_EQ(disturbed, std::vector<int>(ids.size()));
    EXPECT_EQ(std::set<UInt32>(ids.begin(), ids.end()).size(), ids.size());
}

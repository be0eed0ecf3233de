#include "DataIO/Slice.h"

#include "DataIO/Memory/MemoryBlockFactory.h"
#include "support/Failure.h"
#include "support/ScarceMemory.h"
#include "support/Slices.h"

#include <limits>

namespace Vantry { namespace Tests {

using DataIO::Slice;
using DataIO::Memory::MemoryBlockFactory;
using Templates::auto_ptr;

TEST(Slice, HoldsItsBlockAsLongAsItLives)
{
    CountingBlocks blocks;
    {
        auto_ptr<Slice> slice = blocks.slice(counting(10));
        Slice copy(*slice);
        Slice const & same = copy;
        copy = same;
        slice.reset();
        EXPECT_EQ(bytesOf(copy), counting(10));
        EXPECT_EQ(blocks.alive(), 1);

        auto_ptr<Slice> const other = blocks.slice(counting(2, 7));
        copy = *other;
        EXPECT_EQ(bytesOf(copy), counting(2, 7));
        EXPECT_EQ(blocks.alive(), 1);
    }
    EXPECT_EQ(blocks.alive(), 0);
}

TEST(MemoryBlock, TellsThatThereIsNoMemory)
{
    EXPECT_FAILURE(BadAlloc, "data_ != 0: Error allocating memory for a BaseMemoryBlock_T",
                   MemoryBlockFactory::instance().create(std::numeric_limits<UInt64>::max() / 2));
}

}}

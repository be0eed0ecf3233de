#include "DataIO/Slice.h"

#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Exceptions/BadAlloc.h"
#include "support/Failure.h"
#include "support/ScarceMemory.h"
#include "support/Slices.h"

#include <limits>

namespace Vantry { namespace Tests {

using DataIO::BlockHolder;
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

TEST(Slice, CutsAndMergesWithoutCopying)
{
    CountingBlocks blocks;
    auto_ptr<Slice> const head = blocks.slice(counting(10));
    auto_ptr<Slice> const tail = head->splice(head->begin() + 4);
    EXPECT_EQ(bytesOf(*head), counting(4));
    EXPECT_EQ(bytesOf(*tail), counting(6, 4));
    EXPECT_EQ(head->end(), tail->begin());

    Slice const stranger(*blocks.slice(counting(6, 4)));
    EXPECT_FALSE(head->merge(stranger)) << "another block";
    EXPECT_FALSE(tail->merge(*head)) << "it lies ahead";
    tail->cropBegin(1);
    EXPECT_FALSE(head->merge(*tail)) << "there is a gap";
    head->cropEnd(1);
    EXPECT_EQ(bytesOf(*head), counting(3));

    auto_ptr<Slice> const end = head->splice(head->end());
    EXPECT_TRUE(head->merge(*end));
    EXPECT_EQ(bytesOf(*head), counting(3));
}

TEST(Slice, WithoutBlockHasOneThatHoldsNothing)
{
    Slice const slice;
    EXPECT_EQ(slice.size(), 0u);
    EXPECT_NE(slice.block()->data(), nullptr);
    EXPECT_EQ(slice.block()->size(), 0u);
    EXPECT_EQ(slice.block()->addReference(), 1);
    EXPECT_EQ(slice.block()->release(), 1);
    EXPECT_EQ(slice.block()->release(), 1);
    EXPECT_EQ(slice.block()->createBlock(5).block()->size(), 5u);
}

TEST(MemoryBlock, CountsItsReferences)
{
    BlockHolder holder = MemoryBlockFactory::instance().create(100);
    BlockHolder const child = holder.block()->createBlock(7);
    EXPECT_EQ(child.block()->size(), 7u);
    EXPECT_EQ(holder.block()->addReference(), 2);
    EXPECT_EQ(holder.block()->release(), 1);

    BlockHolder copy(holder);
    holder = child;
    EXPECT_EQ(child.block()->addReference(), 3) << "child, holder and this one";
    EXPECT_EQ(child.block()->release(), 2);

    DataIO::Block * const block = copy.release();
    EXPECT_EQ(copy.block(), nullptr);
    EXPECT_EQ(block->addReference(), 2) << "the holder left its reference";
    EXPECT_EQ(block->release(), 1);
    EXPECT_EQ(block->release(), 0);
}

TEST(MemoryBlock, OutlivesItsFactory)
{
    MemoryBlockFactory * const factory = &MemoryBlockFactory::instance();
    EXPECT_EQ(factory, &MemoryBlockFactory::instance());

    BlockHolder block = factory->create(0);
    MemoryBlockFactory::destroy();
    block = BlockHolder();
    EXPECT_EQ(MemoryBlockFactory::instance().create(3).block()->size(), 3u);
}

TEST(MemoryBlock, TellsThatThereIsNoMemory)
{
    EXPECT_FAILURE(BadAlloc, "data_ != 0: Error allocating memory for a BaseMemoryBlock_T",
                   MemoryBlockFactory::instance().create(std::numeric_limits<UInt64>::max() / 2));
}

}}

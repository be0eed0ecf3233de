#include "DataIO/File/FileSliceSource.h"

#include "DataIO/Memory/MemoryBlockFactory.h"
#include "support/Slices.h"
#include "support/TemporaryFile.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Vantry;
using namespace Vantry::Tests;
using DataIO::File::FileSliceSource;

namespace {

UInt64 const SIZE = 2500000;

// Gives blocks that are larger than wanted.
class GenerousFactory : public DataIO::BlockFactory
{
public:
    DataIO::BlockHolder create(UInt64 size) override
    {
        return DataIO::Memory::MemoryBlockFactory::instance().create(size + 100);
    }
};

}

TEST(FileSliceSource, ReadsWithinItsLimits)
{
    TemporaryFile const file(counting(SIZE));
    FileSliceSource source(file.name(), 0, 0);

    auto const least = source.read(10);
    EXPECT_EQ(least->size(), 65536u);
    EXPECT_TRUE(bytesOf(*least) == counting(65536));
    EXPECT_EQ(least->block()->addReference(), 2) << "the slice is the block's only owner";
    least->block()->release();

    EXPECT_EQ(source.read(10000000)->size(), 2097152u);
    EXPECT_EQ(source.skip(100), 100u);
    UInt64 const offset = 65536 + 2097152 + 100;
    EXPECT_EQ(source.absoluteOffset(), offset);
    EXPECT_EQ(source.remaining(), SIZE - offset);
    EXPECT_FALSE(source.endOfStream());

    EXPECT_TRUE(bytesOf(*source.read(SIZE)) == counting(SIZE - offset, static_cast<unsigned char>(offset)));
    EXPECT_TRUE(source.endOfStream());
    EXPECT_EQ(source.read(1)->size(), 0u);
    EXPECT_EQ(source.skip(std::numeric_limits<UInt64>::max()), 0u);
}

TEST(FileSliceSource, TakesBlocksFromItsFactory)
{
    TemporaryFile const file(counting(20));
    FileSliceSource source(file.name(), Templates::SharedPtr<DataIO::BlockFactory>(new GenerousFactory), 4, 8);

    auto const least = source.read(1);
    EXPECT_EQ(bytesOf(*least), counting(4));
    EXPECT_EQ(least->block()->size(), 104u);
    EXPECT_EQ(bytesOf(*source.read(6)), counting(6, 4));
    EXPECT_EQ(bytesOf(*source.read(9)), counting(8, 10));
    EXPECT_EQ(bytesOf(*source.read(9)), counting(2, 18));
}

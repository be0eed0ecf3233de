#include "DataIO/File/FileSliceSource.h"

#include "support/Slices.h"
#include "support/TemporaryFile.h"

#include <limits>

using namespace Vantry;
using namespace Vantry::Tests;
using DataIO::File::FileSliceSource;

namespace {

UInt64 const SIZE = 2500000;

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

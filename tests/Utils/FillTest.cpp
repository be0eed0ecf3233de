#include "Utils/Fill.h"

#include "KLV/FillItem.h"
#include "support/BytesSink.h"
#include "support/Failure.h"

namespace Vantry { namespace Utils { namespace {

using namespace Tests;

// The first place at or behind `position` that lies on the grid and leaves
// room for the fill, found by going there.
UInt64 bytesByWalking(unsigned int grid, UInt64 position, unsigned int minimumSize)
{
    grid = std::max(grid, 1u);
    if (position % grid == 0)
        return 0;

    UInt64 line = position;
    while (line % grid != 0)
        ++line;
    if (line - position >= minimumSize)
        return line - position;

    UInt64 const nearLine = line;
    while (line - nearLine < minimumSize)
        line += grid;
    return line - position;
}

TEST(Fill, ReachesAGridLineFromEveryPosition)
{
    for (unsigned int grid = 0; grid <= 64; ++grid)
        for (UInt64 position = 0; position < 1000; ++position)
            for (unsigned int minimumSize : {0u, 1u, 17u, 20u, 25u})
                ASSERT_EQ(alignBytes(grid, position, minimumSize), bytesByWalking(grid, position, minimumSize))
                    << "grid " << grid << ", position " << position << ", at least " << minimumSize;

    for (unsigned int grid : {256u, 512u, 4096u, 131072u})
        for (UInt64 position = grid - 200; position < grid + 200; ++position)
            ASSERT_EQ(alignBytes(grid, position, 20), bytesByWalking(grid, position, 20))
                << "grid " << grid << ", position " << position;

    // Positions and grids far up: nothing wraps.
    EXPECT_EQ(alignBytes(512, 0xFFFFFFFFFFFFFFFF, 20), 513u);
    EXPECT_EQ(alignBytes(0xFFFFFFFF, 0xFFFFFFFE, 20), 0x100000000u);
}

TEST(Fill, AlignsASinkByAFillItem)
{
    for (unsigned int grid : {0u, 1u, 17u, 64u, 512u, 131072u})
        for (UInt64 position = 0; position < 1000; position += 7)
        {
            BytesSink sink(position);
            kagAlign(sink, grid, 4);
            ASSERT_EQ(sink.absoluteOffset() % std::max(grid, 1u), 0u) << "grid " << grid << ", position " << position;
            ASSERT_EQ(sink.bytes().size(), alignBytes(grid, position, 20));
        }
}

TEST(Fill, WritesKeyLengthAndZeros)
{
    std::tuple<UInt64, unsigned char, Bytes> const cases[] = {
        {20, 4, hex("83 00 00 00")},
        {200, 1, hex("B7")}, // one byte takes what it can
        {200000, 9, hex("88 00 00 00 00 00 03 0D 27")},
    };
    KLV::fillItemKey(2);
    for (auto const & [size, berLength, length] : cases)
    {
        BytesSink sink;
        writeFillKLV(sink, size, berLength);
        Bytes const head = hex("06 0E 2B 34 01 01 01 02 03 01 02 10 01 00 00 00") + length;
        EXPECT_EQ(sink.bytes(), head + repeated(size - head.size(), 0)) << size;
        EXPECT_LE(sink.largestWrite(), 65536u);
    }
    KLV::fillItemKey(1);
}

TEST(Fill, RefusesWhatHoldsNoItemAndWritesNothing)
{
    char const * const tooSmall = "Is not possible to make a KLV Fill item which is less than 17 bytes in length";
    BytesSink sink;
    EXPECT_FAILURE(InvalidValue, tooSmall, writeFillKLV(sink, 19, 4));
    EXPECT_FAILURE(InvalidFormat, "Invalid BER size", writeFillKLV(sink, 100, 10));
    EXPECT_FAILURE(InvalidFormat, "BER size not big enough to hold value length", writeFillKLV(sink, 1000, 2));
    EXPECT_EQ(sink.bytes(), Bytes());
}

}}}

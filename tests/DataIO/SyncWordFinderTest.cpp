#include "DataIO/SyncWordFinder.h"

#include "DataIO/SliceReader.h"
#include "DataIO/SyncResult.h"
#include "support/Slices.h"

#include <gtest/gtest.h>

namespace Vantry { namespace Tests {

using DataIO::SliceReader;
using DataIO::SliceSource;
using DataIO::SyncResult;
using DataIO::SyncWordFinder;
using Templates::SharedPtr;

namespace {

UInt32 const START_CODE = 0x00010000;
UInt32 const START_CODE_MASK = 0x00FFFFFF;
UInt64 const EVERYTHING = ~UInt64(0);

UInt32 wordAt(Bytes const & bytes, UInt64 position)
{
    UInt32 word = 0;
    for (UInt64 i = 4; i > 0; --i)
        word = word << 8 | bytes[position + i - 1];
    return word;
}

struct Expected
{
    bool found;
    UInt64 skipped;
};

// Every position in turn.
Expected naive(Bytes const & bytes, UInt64 from, UInt64 maximum, UInt32 word, UInt32 mask)
{
    UInt64 const size = bytes.size() - from;
    for (UInt64 i = 0; i + 4 <= size && i <= maximum; ++i)
        if ((wordAt(bytes, from + i) & mask) == word)
            return {true, i};
    return {false, size >= 4 && maximum <= size - 4 ? maximum : size};
}

// Checks a search, and what it leaves, from one place after another.
void checkSearches(Bytes const & bytes, std::vector<Bytes> const & pieces, UInt64 maximum, UInt32 word, UInt32 mask)
{
    CountingBlocks blocks;
    SliceReader reader(pieceSource(blocks, pieces));
    SyncWordFinder finder(reader, word, mask);
    int const made = blocks.made();

    for (UInt64 from = 0; from < bytes.size();)
    {
        Expected const expected = naive(bytes, from, maximum, word, mask);
        SyncResult result;
        ASSERT_EQ(finder.find(maximum, result), expected.found);
        ASSERT_EQ(result.found, expected.found);
        ASSERT_EQ(bytesOf(result.skipped), Bytes(bytes.begin() + from, bytes.begin() + from + expected.skipped));
        ASSERT_EQ(reader.absoluteOffset(), from + expected.skipped);
        ASSERT_EQ(result.word, expected.found ? wordAt(bytes, from + expected.skipped) : 0);

        reader.unget(result.skipped);
        ASSERT_EQ(finder.find(maximum), expected.found);
        ASSERT_EQ(reader.absoluteOffset(), from + expected.skipped);
        ASSERT_EQ(blocks.made(), made) << "nothing is copied";

        // Over the match, or what was too far away.
        from = reader.absoluteOffset() + reader.skip(1);
    }
}

}

TEST(SyncWordFinder, FindsWhatANaiveSearchFinds)
{
    std::mt19937 random(2006);
    auto upTo = [&](UInt64 most)
    {
        return random() % (most + 1);
    };
    auto any = [&](std::vector<UInt32> const & values)
    {
        return values[upTo(values.size() - 1)];
    };

    for (int round = 0; round < 1000; ++round)
    {
        // Few different bytes make many false starts.
        std::vector<UInt32> const alphabet =
            round % 2 == 0 ? std::vector<UInt32>{0, 1} : std::vector<UInt32>{0, 1, 0xFF, 0x47};
        UInt64 const variety = any({1, 1, 4, 30});
        Bytes bytes(upTo(round % 10 == 0 ? 3000 : 300));
        for (unsigned char & byte : bytes)
            byte = static_cast<unsigned char>(upTo(variety) == 0 ? any(alphabet) : 0x55);

        UInt32 mask = 0, word = 0;
        for (int i = 0; i < 4; ++i)
        {
            mask = mask << 8 | any({0xFF, 0xFF, 0xFF, 0xF0, 0x00});
            word = word << 8 | any(alphabet);
        }
        // A word with bits outside its mask is found nowhere.
        if (upTo(9) != 0)
            word &= mask;

        SCOPED_TRACE(testing::Message() << std::hex << "word " << word << " mask " << mask << ' ' << bytes);
        UInt64 const longest = any({2, 5, 50, 4000});
        UInt64 const maximum = upTo(3) == 0 ? EVERYTHING - upTo(4) : upTo(bytes.size() + 5);
        checkSearches(bytes, cutAtRandom(bytes, longest, random), maximum, word, mask);
        if (HasFatalFailure())
            return;
    }
}

// One code anywhere among bytes where its own bytes are rare, or frequent.
TEST(SyncWordFinder, FindsACodeFarAway)
{
    std::mt19937 random(13818);
    UInt64 const SIZE = 300000;

    for (unsigned int most : {0x00, 0x01, 0xFF})
        for (UInt64 place : {UInt64(0), UInt64(65533), UInt64(65536), UInt64(random() % SIZE), SIZE - 4, SIZE - 3})
        {
            SCOPED_TRACE(testing::Message() << most << ' ' << place);
            Bytes bytes(SIZE);
            for (unsigned char & byte : bytes)
                byte = static_cast<unsigned char>(0x20 | random() % (most + 1));
            Bytes const code = hex("00 00 01 B3");
            for (UInt64 i = 0; i < 4 && place + i < SIZE; ++i)
                bytes[place + i] = code[i];
            checkSearches(bytes, cutAtRandom(bytes, 100000, random), EVERYTHING, START_CODE, START_CODE_MASK);
        }
}

// What is passed is dropped on the way, not gathered.
TEST(SyncWordFinder, LetsGoOfWhatItPasses)
{
    class Endless : public PieceSource
    {
    public:
        explicit Endless(CountingBlocks & blocks) : PieceSource(blocks, {}), blocks_(blocks) {}

        Templates::auto_ptr<DataIO::Slice> read(UInt64) override
        {
            most = std::max(most, blocks_.alive());
            ++reads;
            return blocks_.slice(repeated(65536, 0));
        }

        bool endOfStream() const override { return false; }

        int most = 0;
        int reads = 0;

    private:
        CountingBlocks & blocks_;
    };

    CountingBlocks blocks;
    auto * const endless = new Endless(blocks);
    SliceReader reader{SharedPtr<SliceSource>(endless)};
    EXPECT_FALSE(SyncWordFinder(reader, START_CODE, START_CODE_MASK).find(100 << 20));
    EXPECT_EQ(endless->reads, 1601);
    EXPECT_LT(endless->most, 30);
}

}}

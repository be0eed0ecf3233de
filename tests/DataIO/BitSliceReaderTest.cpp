#include "DataIO/BitSliceReader.h"

#include "support/Failure.h"
#include "support/Slices.h"

namespace Vantry { namespace Tests {

using DataIO::BitSliceReader;
using DataIO::Chain;
using DataIO::SliceSource;
using Templates::SharedPtr;

namespace {

unsigned char const STUFFING = 3;

class StuffedReader : public BitSliceReader
{
public:
    using BitSliceReader::BitSliceReader;

    bool isStuffingByte(unsigned char byte) override { return byte == STUFFING; }
};

// A bit, and how many bytes of the stream have gone with it.
struct Bit
{
    bool set;
    UInt64 bytes;
};

std::vector<Bit> bitsOf(Bytes const & stream, bool stuffed)
{
    std::vector<Bit> bits;
    for (UInt64 i = 0; i < stream.size(); ++i)
        for (int bit = 7; bit >= 0 && !(stuffed && stream[i] == STUFFING); --bit)
            bits.push_back({(stream[i] >> bit & 1) != 0, i + 1});
    return bits;
}

}

TEST(BitSliceReader, TakesBitsLikeOneByOne)
{
    std::mt19937 random(331);
    auto upTo = [&](unsigned int most)
    {
        return static_cast<unsigned int>(random() % (most + 1));
    };
    CountingBlocks blocks;

    for (int round = 0; round < 200; ++round)
    {
        bool const stuffed = round % 2 == 1;
        Bytes stream(2000);
        for (unsigned char & byte : stream)
            byte = static_cast<unsigned char>(stuffed && upTo(3) == 0 ? STUFFING : upTo(255));
        std::vector<Bit> const bits = bitsOf(stream, stuffed);

        SharedPtr<SliceSource> const source = pieceSource(blocks, cutAtRandom(stream, 1 + upTo(20), random));
        BitSliceReader plainReader(source);
        StuffedReader stuffedReader(source);
        BitSliceReader & reader = stuffed ? stuffedReader : plainReader;
        UInt64 released = 0;

        for (UInt64 next = 0; next + 100 < bits.size();)
        {
            unsigned int const count = 1 + upTo(69);
            Bytes wanted((count + 7) / 8);
            for (unsigned int i = 0; i < count; ++i)
                wanted[i / 8] = static_cast<unsigned char>(wanted[i / 8] | bits[next + i].set << (7 - i % 8));
            next += count;
            UInt64 const position = bits[next - 1].bytes;

            if (upTo(3) == 0)
            {
                ASSERT_EQ(reader.skipBits(count), count);
            }
            else
            {
                Bytes got(wanted.size(), 0xA5);
                reader.readBits(count, got.data());
                ASSERT_EQ(got, wanted) << count;
            }
            ASSERT_EQ(reader.absoluteOffset(), position);

            if (upTo(9) == 0)
            {
                Chain used;
                reader.readCache(used);
                ASSERT_EQ(bytesOf(used), Bytes(stream.begin() + released, stream.begin() + position));
                released = position;
                next = (next + 7) / 8 * 8;
            }
        }
    }
}

TEST(BitSliceReader, TellsThatTheBitsRunOut)
{
    char const * const AT_THE_END = "!this -> eof (): Not enough data to read from the source";
    CountingBlocks blocks;
    BitSliceReader reader(pieceSource(blocks, {hex("01"), hex("02 03")}));

    unsigned char bits[4];
    reader.readBits(3, bits);
    EXPECT_FAILURE(NotEnoughData, AT_THE_END, reader.readBits(22, bits));
    EXPECT_FAILURE(NotEnoughData, AT_THE_END, reader.skipBits(1));

    Chain used;
    reader.readCache(used);
    EXPECT_EQ(bytesOf(used), hex("01 02 03")) << "what was there has been taken";
}

}}

#include "DataIO/BitSliceReader.h"

#include "Exceptions/NotEnoughData.h"
#include "support/Failure.h"
#include "support/Slices.h"

#include <random>

namespace Vantry { namespace Tests {

using DataIO::BitSliceReader;
using DataIO::Chain;
using DataIO::SliceSource;
using Templates::SharedPtr;

namespace {

SharedPtr<SliceSource> pieces(CountingBlocks & blocks, std::vector<Bytes> const & bytes)
{
    return SharedPtr<SliceSource>(new PieceSource(blocks, bytes));
}

unsigned char const STUFFING = 3;

class StuffedReader : public BitSliceReader
{
public:
    using BitSliceReader::BitSliceReader;

    bool isStuffingByte(unsigned char byte) override { return byte == STUFFING; }
};

// One bit after another.
class NaiveBits
{
public:
    NaiveBits(Bytes const & stream, bool stuffed) : stream_(stream), stuffed_(stuffed) {}

    Bytes take(unsigned int count)
    {
        Bytes bits((count + 7) / 8);
        for (unsigned int i = 0; i < count; ++i)
            if (takeOne())
                bits[i / 8] = static_cast<unsigned char>(bits[i / 8] | 0x80 >> i % 8);
        return bits;
    }

    // How many bytes were touched.
    UInt64 position() const { return byte_; }

    void nextByte() { bit_ = 0; }

private:
    bool takeOne()
    {
        if (bit_ == 0)
        {
            do
                current_ = stream_[byte_++];
            while (stuffed_ && current_ == STUFFING);
            bit_ = 8;
        }
        return (current_ >> --bit_ & 1) != 0;
    }

    Bytes const & stream_;
    bool stuffed_;
    UInt64 byte_ = 0;
    unsigned char current_ = 0;
    unsigned int bit_ = 0;
};

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

        SharedPtr<SliceSource> const source = pieces(blocks, cutAtRandom(stream, 1 + upTo(20), random));
        BitSliceReader plainReader(source);
        StuffedReader stuffedReader(source);
        BitSliceReader & reader = stuffed ? stuffedReader : plainReader;
        NaiveBits naive(stream, stuffed);
        UInt64 released = 0;

        while (naive.position() < 1500)
        {
            unsigned int const count = upTo(70);
            Bytes const wanted = naive.take(count);
            if (upTo(3) == 0)
            {
                ASSERT_EQ(reader.skipBits(count), count);
            }
            else
            {
                Bytes bits((count + 7) / 8, 0xA5);
                reader.readBits(count, bits.data());
                ASSERT_EQ(bits, wanted) << count;
            }
            ASSERT_EQ(reader.absoluteOffset(), naive.position());

            if (upTo(9) == 0)
            {
                Chain used;
                reader.readCache(used);
                ASSERT_EQ(bytesOf(used), Bytes(stream.begin() + released, stream.begin() + naive.position()));
                released = naive.position();
                naive.nextByte();
            }
        }
    }
}

TEST(BitSliceReader, GoesOnByBytesBehindTheBits)
{
    CountingBlocks blocks;
    BitSliceReader reader(pieces(blocks, {hex("AB CD EF"), hex("01 02")}));

    unsigned char bits[2];
    reader.readBits(12, bits);
    EXPECT_EQ(bits[0], 0xAB);
    EXPECT_EQ(bits[1], 0xC0);
    EXPECT_EQ(bytesOf(*reader.read(1)), hex("EF"));
    reader.readBits(4, bits);
    EXPECT_EQ(bits[0], 0xD0) << "the rest of the byte is still there";

    reader.releaseCache();
    EXPECT_EQ(reader.skipBits(1), 1u);
    reader.releaseCache();
    EXPECT_EQ(bytesOf(*reader.read(9)), hex("02"));
}

TEST(BitSliceReader, TellsThatTheBitsRunOut)
{
    char const * const AT_THE_END = "!this -> eof (): Not enough data to read from the source";
    CountingBlocks blocks;
    BitSliceReader reader(pieces(blocks, {hex("01"), hex("02 03")}));

    unsigned char bits[4];
    EXPECT_FAILURE(NotEnoughData, AT_THE_END, reader.readBits(25, bits));
    EXPECT_FAILURE(NotEnoughData, AT_THE_END, reader.skipBits(1));
    reader.readBits(0, nullptr);
    EXPECT_EQ(reader.skipBits(0), 0u);

    Chain used;
    reader.readCache(used);
    EXPECT_EQ(bytesOf(used), hex("01 02 03")) << "what was there has been taken";
}

}}

#include "Essence/AES3/S302M/Source.h"

#include "Essence/AES3/AES3Info.h"
#include "Essence/AES3/S302M/Header.h"
#include "support/Failure.h"
#include "support/S302M.h"
#include "support/Slices.h"

#include <memory>
#include <stdexcept>

namespace Vantry { namespace Tests {

using namespace Essence::AES3;
using S302M::Header;
using S302M::Source;

namespace {

// All that comes until the end, which must come.
Bytes drained(Source & source)
{
    Bytes all;
    for (int calls = 0; !source.endOfStream(); ++calls)
    {
        all += bytesOf(*source.read(1));
        if (calls > 100000)
            throw std::runtime_error("the stream has no end");
    }
    return all;
}

// Stereo of 16 bits whose groups have these channel status bits, framed at
// the first.
Bytes groupsOf(ChannelStatus const & a, ChannelStatus const & b, unsigned int groups)
{
    Bytes payload;
    for (unsigned int i = 0; i < groups; ++i)
    {
        unsigned int const framing = i % 192 == 0 ? 1 : 0;
        payload += packedPair(16, {i, framing | unsigned(a.bit(i % 192)) << 1}, {i, unsigned(b.bit(i % 192)) << 1});
    }
    return payload;
}

class S302MSource : public testing::Test
{
protected:
    Source & open(Bytes const & stream, UInt64 longestPiece = 1000)
    {
        source_.reset(new Source(pieceSource(blocks_, cutAtRandom(stream, longestPiece, random_))));
        return *source_;
    }

    std::mt19937 random_{1};
    CountingBlocks blocks_;
    std::unique_ptr<Source> source_;
};

}

TEST(S302MHeader, HasEachFieldInItsBits)
{
    Header header;
    auto const bytes = [&]
    {
        return Bytes(header.data(), header.data() + Header::size());
    };
    header.channelIdentification(0xFF);
    EXPECT_EQ(bytes(), hex("00 00 3F C0"));
    header.audioPacketSize(0x1234);
    header.numberOfChannels(6);
    header.bitsPerSample(24);
    EXPECT_EQ(bytes(), hex("12 34 BF E0"));

    for (unsigned char const value : {0, 1, 5, 10, 22, 255})
    {
        header.numberOfChannels(value);
        header.bitsPerSample(value);
    }
    EXPECT_EQ(bytes(), hex("12 34 BF E0")) << "what can't be held is left as it was";
    EXPECT_EQ(header.audioPacketSize(), 0x1234);
    EXPECT_EQ(header.channelIdentification(), 0xFF);
    EXPECT_EQ(header.numberOfChannels(), 6);
    EXPECT_EQ(header.bitsPerSample(), 24);
}

TEST_F(S302MSource, GivesTheSamplesOfPairs)
{
    EXPECT_EQ(drained(open(hex("0005 0000 2C48 FB3D5E"))), hex("3412 CDAB")) << "all flags set";

    for (unsigned int const bits : {16u, 20u, 24u})
        for (unsigned int const channels : {2u, 4u, 6u, 8u})
            for (UInt64 const longestPiece : {3, 50, 10000})
            {
                SCOPED_TRACE(testing::Message() << bits << " bits, " << channels << " channels");
                Bytes const first = randomPCM(bits, 300 * channels, random_);
                Bytes const second = randomPCM(bits, channels, random_);
                Source & source = open(s302mPacket(bits, channels, packedPCM(bits, first)) + hex("0000 0000") +
                                           s302mPacket(bits, channels, packedPCM(bits, second)),
                                       longestPiece);

                EXPECT_EQ(source.info().bitsPerSample, bits);
                EXPECT_EQ(source.info().channels, channels);
                EXPECT_EQ(source.info().bytesPerSampleGroup, second.size());
                EXPECT_EQ(drained(source), first + second);
                EXPECT_EQ(source.absoluteOffset(), first.size() + second.size());
            }
}

TEST_F(S302MSource, LearnsTheChannelStatus)
{
    ChannelStatus left, right;
    left.lockIndication(true);
    right.samplingFrequency(32000);
    right.useOfAuxiliarySampleBits(AUXILIARY_BITS_AUDIO);
    right.channelMode(CHANNEL_MODE_STEREO);
    right.audioSignalEmphasis(EMPHASIS_50_15);
    right.crc(0x55);

    Bytes const unframed = packedPair(16, {1, 2}, {2, 2});
    Bytes const payload = unframed + groupsOf(left, right, 400);
    AES3Info const info = open(s302mPacket(16, 2, payload), 30).info();
    EXPECT_EQ(info.samplingFrequency, Templates::Rational<int>(32000));
    EXPECT_FALSE(info.lockIndication) << "the last channel tells";
    EXPECT_EQ(info.useOfAuxiliarySampleBits, AUXILIARY_BITS_AUDIO);
    EXPECT_EQ(info.channelMode, CHANNEL_MODE_STEREO);
    EXPECT_EQ(info.audioSignalEmphasis, EMPHASIS_50_15);
    EXPECT_TRUE(info.channelStatus == right.data());
    EXPECT_EQ(info.dataType, AES3Info::PCM);

    AES3Info nothing;
    nothing.bitsPerSample = 16;
    nothing.channels = 2;
    nothing.bytesPerSampleGroup = 4;
    EXPECT_TRUE(open(s302mPacket(16, 2, groupsOf(left, right, 191))).info() == nothing);
}

TEST_F(S302MSource, RefusesFramingWithinAFrame)
{
    ChannelStatus const status;
    Bytes const packet = s302mPacket(16, 2, groupsOf(status, status, 100));
    EXPECT_FALSE(open(s302mPacket(16, 2, groupsOf(status, status, 9) + groupsOf(status, status, 9))).preload());

    Source & source = open(packet + packet);
    DataIO::Chain samples;
    EXPECT_EQ(source.readSamples(100, samples), 100u);
    EXPECT_FAILURE(InvalidFormat, "!(recording_ && !complete_ && framing): Framing bit set during a frame.",
                   source.read(1));
}

TEST_F(S302MSource, PassesOverWhatIsNoPacket)
{
    Bytes const pair = packedPair(16, {1, 0}, {2, 0});
    Bytes const streams[] = {
        {},
        hex("00 05 00"),
        hex("0000 0000 0000 0000"),
        s302mPacket(28, 2, pair) + repeated(100000, 0),
        s302mPacket(16, 2, pair + hex("01")),
        s302mPacket(16, 2, pair.first(4), 5),
        s302mPacket(16, 2, pair, 10),
        s302mPacket(24, 8, repeated(27, 1), 28),
    };
    for (Bytes const & stream : streams)
    {
        SCOPED_TRACE(stream.first(std::min<std::size_t>(stream.size(), 20)));
        Source & source = open(stream);
        EXPECT_FALSE(source.preload());
        EXPECT_EQ(drained(source), Bytes());
        EXPECT_EQ(source.skip(10), 0u);
        EXPECT_FAILURE(InvalidFormat, "impl_ -> preload (): Trying to get info for a file with an invalid format",
                       source.info());
    }

    Bytes const sound = s302mPacket(16, 2, pair);
    Bytes const samples = hex("0100 0200");
    EXPECT_EQ(drained(open(hex("0000 0000") + sound)), samples) << "an empty packet ahead";
    EXPECT_EQ(drained(open(sound + s302mPacket(16, 2, pair + pair.first(3), 15))), samples + samples)
        << "a packet cut off gives its whole samples";
}

TEST_F(S302MSource, GivesAsManySamplesAsAreAskedFor)
{
    Bytes const pcm = randomPCM(24, 2 * 50, random_);
    Bytes const packet = s302mPacket(24, 2, packedPCM(24, pcm));
    Source & source = open(packet + hex("0000 0000") + packet + hex("0000 0000"), 100);

    DataIO::Chain samples;
    EXPECT_EQ(source.readSamples(0, samples), 0u);
    EXPECT_EQ(source.readSamples(7, samples), 7u);
    EXPECT_EQ(source.skip(3 * 6), 18u);
    EXPECT_EQ(source.absoluteOffset(), 60u);
    EXPECT_EQ(source.readSamples(88, samples), 88u);
    EXPECT_EQ(source.skip(6), 6u);
    EXPECT_FALSE(source.endOfStream());
    EXPECT_EQ(source.skip(1), 1u) << "within the last sample";
    EXPECT_EQ(source.readSamples(9, samples), 0u) << "less than a sample is dropped";
    EXPECT_TRUE(source.endOfStream());

    Bytes const all = pcm + pcm;
    EXPECT_EQ(bytesOf(samples), Bytes(all.begin(), all.begin() + 42) + Bytes(all.begin() + 60, all.begin() + 588));
}

TEST_F(S302MSource, FindsWhatIsNoPCM)
{
    struct Words
    {
        unsigned int bits;
        Bytes first, second;
    };

    Words const kinds[] = {
        {16, hex("72 F8"), hex("1F 4E")},
        {20, hex("20 87 6F"), hex("F0 E1 54")},
        {24, hex("72 F8 96"), hex("1F 4E A5")},
    };

    for (Words const & words : kinds)
    {
        SCOPED_TRACE(words.bits);
        std::size_t const size = words.first.size();
        auto const typeWord = [size](unsigned char type)
        {
            Bytes word(size);
            word[size - 2] = 0xE0 | type;
            return word;
        };
        auto const dataType = [&](Bytes const & pcm)
        {
            return open(s302mPacket(words.bits, 2, packedPCM(words.bits, pcm)), 77).info().dataType;
        };

        Bytes const sound = repeated(6 * size, 0x10);
        Bytes const silence = repeated(4 * size, 0);
        Bytes const preamble = words.first + words.second;
        Bytes const rest = typeWord(28) + repeated(3 * size, 0x10);
        EXPECT_EQ(dataType(silence + preamble + rest), 28);
        EXPECT_EQ(dataType(sound + preamble + typeWord(1) + sound + repeated(size, 0) + silence + preamble + rest), 28)
            << "the first has no silence ahead";
        EXPECT_EQ(dataType(silence + words.first + words.first + silence + preamble + rest), 28)
            << "the first has no second word";
        EXPECT_EQ(dataType(repeated(3 * size, 0) + preamble + rest + repeated(size, 1)), AES3Info::PCM);
        EXPECT_EQ(dataType(silence + preamble), AES3Info::PCM) << "cut off";

        for (Int32 type = 0; type < 32; ++type)
        {
            bool const isKnown = type == 1 || type == 4 || type == 5 || type == 8 || type == 28;
            Bytes const burst = preamble + typeWord(static_cast<unsigned char>(type)) + repeated(size, 0x10);
            EXPECT_EQ(dataType(sound + silence + burst), isKnown ? type : AES3Info::PCM);
        }
    }
}

}}

#include "Essence/Converters/WaveToS302M.h"

#include "Essence/AES3/AES3Info.h"
#include "Essence/AES3/S302M/Source.h"
#include "support/Failure.h"
#include "support/S302M.h"
#include "support/Slices.h"
#include "support/WaveFile.h"

namespace Vantry { namespace Tests {

using Essence::AES3::S302M::Source;
using Essence::Converters::WaveToS302M;
using Templates::SharedPtr;

namespace {

Bytes formatOf(unsigned int bits, unsigned int channels, unsigned int blockAlign, unsigned int tag = 1)
{
    return littleEndian(tag, 2) + littleEndian(channels, 2) + littleEndian(48000, 4) +
           littleEndian(48000 * blockAlign, 4) + littleEndian(blockAlign, 2) + littleEndian(bits, 2);
}

Bytes formatOf(unsigned int bits, unsigned int channels)
{
    return formatOf(bits, channels, channels * bits / 8);
}

Bytes waveOf(Bytes const & format, Bytes const & pcm)
{
    return waveFile(waveChunk("fmt ", format) + waveChunk("data", pcm) + waveChunk("LIST", counting(9)) + hex("0102"));
}

// What is left of PCM when only the first two channels carry sound.
Bytes firstPairOf(Bytes pcm, unsigned int sampleSize, unsigned int channels)
{
    for (std::size_t i = 0; i < pcm.size(); ++i)
        if (i % (sampleSize * channels) >= 2 * sampleSize)
            pcm[i] = 0;
    return pcm;
}

class WaveToS302MTest : public testing::Test
{
protected:
    SharedPtr<DataIO::SliceSource> open(Bytes const & wave)
    {
        return SharedPtr<DataIO::SliceSource>(new WaveToS302M(pieceSource(blocks_, cutAtRandom(wave, 50000, random_))));
    }

    std::mt19937 random_{1};
    CountingBlocks blocks_;
};

}

TEST_F(WaveToS302MTest, PacksTheFirstTwoChannels)
{
    for (unsigned int const bits : {16u, 24u})
        for (unsigned int const channels : {2u, 4u, 6u, 8u})
        {
            SCOPED_TRACE(testing::Message() << bits << " bits, " << channels << " channels");
            Bytes const pcm = randomPCM(bits, 20000 * channels, random_);
            Bytes const carried = firstPairOf(pcm, bits / 8, channels);
            Bytes const format = channels == 4 ? formatOf(bits, channels, channels * bits / 8, 0xFFFE) +
                                                     hex("1600 1800 00000000 01000000 0000 1000 8000 00AA00389B71")
                                               : formatOf(bits, channels);
            Bytes const wave = waveOf(format, pcm + hex("01"));

            SharedPtr<DataIO::SliceSource> const packets = open(wave);
            std::size_t const group = (bits + 4) * channels / 8;
            std::size_t const block = bits / 8 * channels;
            EXPECT_EQ(bytesOf(*packets->read(1)), s302mPacket(bits, channels, packedPCM(bits, carried.first(block))));
            EXPECT_EQ(packets->read(10 * group + 4)->size(), 10 * group + 4);
            EXPECT_EQ(packets->read(100000)->size(), 65535 / group * group + 4);
            EXPECT_EQ(packets->absoluteOffset(), 11 * group + 8 + 65535 / group * group + 4);

            Source decoded(open(wave));
            EXPECT_EQ(decoded.info().bitsPerSample, bits);
            EXPECT_EQ(decoded.info().channels, channels);
            DataIO::Chain samples;
            EXPECT_EQ(decoded.readSamples(100000, samples), 20000u);
            EXPECT_TRUE(bytesOf(samples) == carried);
            EXPECT_TRUE(decoded.endOfStream());
        }
}

TEST_F(WaveToS302MTest, SkipsWithinAPacket)
{
    Bytes const wave = waveOf(formatOf(16, 2), counting(40));
    Bytes const packet = bytesOf(*open(wave)->read(100));
    SharedPtr<DataIO::SliceSource> const packets = open(wave);
    EXPECT_EQ(packets->skip(5), 5u);
    EXPECT_EQ(packets->absoluteOffset(), 5u);
    EXPECT_EQ(bytesOf(*packets->read(100)), Bytes(packet.begin() + 5, packet.begin() + 9)) << "one group was packed";
    EXPECT_EQ(packets->skip(1000), 49u);
    EXPECT_TRUE(packets->endOfStream());
    EXPECT_EQ(packets->skip(1), 0u);
}

TEST_F(WaveToS302MTest, RefusesWhatItCantPack)
{
    Bytes const pcm = counting(60);
    auto const read = [&](Bytes const & format)
    {
        open(waveOf(format, pcm))->read(100);
    };

    EXPECT_FAILURE(InvalidFormat,
                   "chunkLength >= sizeof (Wave::FormatBaseChunk): Wave file Format chunk is shorter than expected",
                   read(formatOf(16, 2).first(13)));
    EXPECT_FAILURE(InvalidFormat,
                   "headerSlice.size () >= sizeof (Wave::FormatPCMChunk): "
                   "Wave PCM Format chunk is shorter than expected",
                   read(formatOf(16, 2).first(15)));
    EXPECT_FAILURE(InvalidFormat,
                   "headerSlice.size () >= sizeof (Wave::FormatExtensibleChunk): "
                   "Wave Format Extensible Format chunk is shorter than expected",
                   read(formatOf(16, 2, 4, 0xFFFE) + repeated(23, 0)));
    EXPECT_FAILURE(NotImplemented,
                   "AES3 source still does not support 20 bit per sample. Please ask the maintainers for it.",
                   read(formatOf(20, 2, 6)));
    EXPECT_FAILURE(InvalidFormat, "SMPTE 302M does not support 32 bits per sample.", read(formatOf(32, 2)));
    EXPECT_FAILURE(InvalidFormat, "SMPTE 302M does not support 272 bits per sample.", read(formatOf(272, 2)));
    EXPECT_FAILURE(InvalidFormat, "SMPTE 302M does not support 3 channels.", read(formatOf(16, 3)));

    char const * const invalid = "this -> preload (): Wave file contains invalid data";
    for (Bytes const & format : {
             formatOf(16, 2, 4, 3),                        // no PCM
             formatOf(16, 2, 4, 0xFFFE) + repeated(24, 0), // no PCM either
             formatOf(24, 2, 5),                           // no room for two samples
             formatOf(16, 2, 0),
         })
        EXPECT_FAILURE(InvalidFormat, invalid, read(format));
    EXPECT_FAILURE(InvalidFormat, invalid, open(pcm)->read(100));
    EXPECT_FAILURE(InvalidFormat, invalid, open(waveFile(waveChunk("data", pcm)))->read(100));
    EXPECT_EQ(open(waveOf(formatOf(16, 2), pcm.first(3)))->read(100)->size(), 0u) << "less than a block";
}

}}

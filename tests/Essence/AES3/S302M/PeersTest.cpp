#include "Essence/AES3/S302M/Source.h"

#include "Essence/AES3/AES3Info.h"
#include "Essence/Converters/WaveToS302M.h"
#include "support/FFmpeg.h"
#include "support/S302M.h"
#include "support/Slices.h"
#include "support/WaveFile.h"

namespace Vantry { namespace Tests {

using Essence::AES3::AES3Info;
using Essence::AES3::S302M::Source;
using Essence::Converters::WaveToS302M;

namespace {

std::size_t const SAMPLES = 5000;

struct Case
{
    unsigned int bits;
    unsigned int channels;
    char const * coder;
    char const * pcm;
};

Case const CASES[] = {
    {16, 2, "", "-c:a pcm_s16le -f s16le"},
    {16, 8, "", "-c:a pcm_s16le -f s16le"},
    {20, 2, "-bits_per_raw_sample 20", "-c:a pcm_s24le -f s24le"},
    {24, 2, "", "-c:a pcm_s24le -f s24le"},
    {24, 4, "", "-c:a pcm_s24le -f s24le"},
};

Bytes waveOf(Case const & c, Bytes const & pcm)
{
    unsigned int const size = c.bits == 16 ? 2 : 3;
    Bytes const format = littleEndian(0xFFFE, 2) + littleEndian(c.channels, 2) + littleEndian(48000, 4) +
                         littleEndian(48000 * size * c.channels, 4) + littleEndian(size * c.channels, 2) +
                         littleEndian(size * 8, 2) + hex("1600") + littleEndian(c.bits, 2) +
                         hex("00000000 0100000000001000800000AA00389B71");
    return waveFile(waveChunk("fmt ", format) + waveChunk("data", pcm));
}

// Where the payload of each PES packet of the one stream of sound lies in a
// transport stream (ISO/IEC 13818-1), as positions of its bytes.
std::vector<std::vector<std::size_t>> payloadsOf(Bytes const & transport)
{
    std::vector<std::vector<std::size_t>> payloads;
    for (std::size_t packet = 0; packet + 188 <= transport.size(); packet += 188)
    {
        unsigned char const * const head = &transport[packet];
        if ((head[1] & 0x1F) != 0x01 || head[2] != 0x00 || (head[3] & 0x10) == 0)
            continue;

        std::size_t at = packet + 4 + ((head[3] & 0x20) != 0 ? 1u + head[4] : 0u);
        if ((head[1] & 0x40) != 0)
        {
            payloads.emplace_back();
            at += 9u + transport[at + 8];
        }
        for (; at < packet + 188; ++at)
            payloads.back().push_back(at);
    }
    return payloads;
}

// The sound of one wave as ffmpeg packs it.
class S302MPeers : public testing::TestWithParam<Case>
{
protected:
    void SetUp() override
    {
        VANTRY_NEEDS_FFMPEG();
        pcm_ = randomPCM(GetParam().bits, SAMPLES * GetParam().channels, random_);
        wave_.write(waveOf(GetParam(), pcm_));
        transport_ = FFmpegFile("-i " + wave_.path().string() + " -c:a s302m -strict experimental " + GetParam().coder +
                                " -f mpegts")
                         .content();
        payloads_ = payloadsOf(transport_);
        ASSERT_GT(payloads_.size(), 2u);
    }

    std::mt19937 random_{1};
    CountingBlocks blocks_;
    Bytes pcm_;
    TemporaryFile wave_;
    Bytes transport_;
    std::vector<std::vector<std::size_t>> payloads_;
};

INSTANTIATE_TEST_SUITE_P(Formats, S302MPeers, testing::ValuesIn(CASES),
                         [](auto const & info)
                         { return std::to_string(info.param.bits) + "BitsOf" + std::to_string(info.param.channels); });

}

TEST_P(S302MPeers, FFmpegsPacketsGiveTheSamples)
{
    Bytes packets;
    for (auto const & payload : payloads_)
        for (std::size_t const at : payload)
            packets.push_back(transport_[at]);

    Source source(pieceSource(blocks_, cutAtRandom(packets, 3000, random_)));
    EXPECT_EQ(source.info().bitsPerSample, GetParam().bits);
    EXPECT_EQ(source.info().channels, GetParam().channels);
    EXPECT_EQ(source.info().dataType, AES3Info::PCM);
    DataIO::Chain samples;
    EXPECT_EQ(source.readSamples(2 * SAMPLES, samples), SAMPLES);
    EXPECT_TRUE(bytesOf(samples) == pcm_);
}

// Our packets take the places of ffmpeg's own in its transport stream.
TEST_P(S302MPeers, FFmpegTakesTheSamplesFromOurPackets)
{
    if (GetParam().bits == 20)
        GTEST_SKIP() << "packets of 20 bits aren't made";

    WaveToS302M packets(pieceSource(blocks_, {waveOf(GetParam(), pcm_)}));
    for (auto const & payload : payloads_)
    {
        Bytes const packet = bytesOf(*packets.read(payload.size()));
        ASSERT_EQ(packet.size(), payload.size());
        for (std::size_t i = 0; i < packet.size(); ++i)
            transport_[payload[i]] = packet[i];
    }
    EXPECT_TRUE(packets.endOfStream());

    unsigned int const sampleSize = GetParam().bits / 8;
    for (std::size_t i = 0; i < pcm_.size(); ++i)
        if (i % (sampleSize * GetParam().channels) >= 2 * sampleSize)
            pcm_[i] = 0;
    TemporaryFile const replaced(transport_);
    FFmpegFile const decoded("-f mpegts -i " + replaced.path().string() + " " + GetParam().pcm);
    EXPECT_TRUE(decoded.content() == pcm_);
}

}}

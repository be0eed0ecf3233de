#include "Essence/AES3/S331M.h"
#include "Essence/Converters/S331MDemux.h"
#include "Essence/Converters/S331MMux.h"
#include "KLV/Reader.h"
#include "support/BytesSource.h"
#include "support/FFmpeg.h"
#include "support/Failure.h"
#include "support/QueuedBytes.h"
#include "support/Slices.h"
#include "support/WaveFile.h"

#include <numeric>

namespace Vantry { namespace Tests {

using Essence::Converters::S331MDemux;
using Essence::Converters::S331MMux;
using Templates::Rational;

namespace {

unsigned int const CHANNELS = 8;
Bytes const NO_SOUND = hex("000080");

// The samples of one channel, 3 bytes each, of which the low ones are 0 where
// a sample has less.
Bytes randomChannel(UInt64 count, unsigned int sampleSize, std::mt19937 & random)
{
    Bytes samples;
    for (UInt64 i = 0; i < 3 * count; ++i)
        samples.push_back(i % 3 < 3 - sampleSize ? 0 : static_cast<unsigned char>(random()));
    return samples;
}

std::vector<Bytes> randomChannels(unsigned int channels, UInt64 count, unsigned int sampleSize, std::mt19937 & random)
{
    std::vector<Bytes> all;
    for (unsigned int n = 0; n < channels; ++n)
        all.push_back(randomChannel(count, sampleSize, random));
    return all;
}

// Channels sample by sample, of each sample the high bytes.
Bytes interleaved(std::vector<Bytes> const & channels, unsigned int first, unsigned int count, unsigned int sampleSize)
{
    Bytes pcm;
    for (UInt64 at = 0; at < channels[first].size(); at += 3)
        for (unsigned int n = first; n < first + count; ++n)
            pcm.insert(pcm.end(), &channels[n][at] + 3 - sampleSize, &channels[n][at] + 3);
    return pcm;
}

Templates::SharedPtr<DataIO::SliceSource> streamOf(Bytes const & bytes)
{
    return queuedBytes(bytes.data(), bytes.size(), 1001);
}

void addPCM(S331MMux & mux, Bytes const & bytes, unsigned short channels, unsigned short sampleSize)
{
    unsigned short const bits = sampleSize * 8;
    mux.addPCMStream(streamOf(bytes), bits, bits, channels, 48000, channels * sampleSize);
}

Bytes allElements(S331MMux & mux)
{
    Bytes elements;
    while (!mux.endOfStream())
        elements += bytesOf(*mux.read(1));
    EXPECT_EQ(mux.absoluteOffset(), elements.size());
    return elements;
}

// Keeps all that it is given.
class Sound : public S331MDemux
{
public:
    explicit Sound(unsigned char channelsPerStream) : S331MDemux(channelsPerStream), streams(8 / channelsPerStream) {}

    void streamInfo(unsigned int stream, Rational<int> const & samplingFrequency, short sourceWordLength) override
    {
        EXPECT_EQ(stream, infos.size());
        infos.emplace_back(samplingFrequency, sourceWordLength);
    }

    void streamData(unsigned int stream, KLV::Value & samples) override
    {
        EXPECT_EQ(infos.size(), streams.size()) << "the infos come first";
        Bytes bytes(samples.totalLength());
        samples.readValue(bytes.data(), bytes.size());
        streams[stream] += bytes;
    }

    void take(Bytes const & bytes, UInt64 mostPerRead = ~UInt64(0))
    {
        BytesSource source(bytes, mostPerRead);
        KLV::Value value(source, bytes.size());
        handleData(value);
    }

    std::vector<std::pair<Rational<int>, short>> infos;
    std::vector<Bytes> streams;
};

std::vector<Bytes> channelsOf(Bytes const & elements)
{
    Sound sound(1);
    sound.take(elements);
    return sound.streams;
}

Bytes times(Bytes const & bytes, UInt64 count)
{
    Bytes all;
    for (UInt64 i = 0; i < count; ++i)
        all += bytes;
    return all;
}

}

TEST(S331M, PacksWords)
{
    struct Case
    {
        unsigned int sample;
        unsigned char channel;
        bool f, c, u, v;
        Bytes word;
    };
    Case const cases[] = {
        {0x000000, 0, false, false, false, false, hex("00000000")},
        {0x000000, 7, true, false, false, false, hex("0F000000")}, // neither counts for the parity
        {0x000001, 2, false, false, false, false, hex("12000080")},
        {0xABCDEF, 1, true, true, false, false, hex("F9DEBC4A")},
        {0x800000, 3, false, false, true, true, hex("030000B8")},
        {0x000000, 4, false, false, false, true, hex("04000090")},
        {0xFFFFFF, 5, false, true, true, true, hex("F5FFFFFF")},
    };
    for (Case const & c : cases)
    {
        Bytes word(4), sample(3);
        EXPECT_EQ(Essence::AES3::S331M::encodeSample(word.data(), c.sample, c.channel, c.f, c.c, c.u, c.v),
                  word.data() + 4);
        EXPECT_EQ(word, c.word);
        EXPECT_EQ(Essence::AES3::S331M::decodeSample(sample.data(), word.data(), true), word.data() + 4);
        EXPECT_EQ(sample, littleEndian(c.sample, 3));
        Essence::AES3::S331M::decodeSample(sample.data(), word.data(), false);
        EXPECT_EQ(sample, c.v ? NO_SOUND : littleEndian(c.sample, 3));
    }
}

TEST(S331MMux, LaysOutElements)
{
    S331MMux mux(25);
    addPCM(mux, hex("3412 7856") + times(hex("0080 FF7F"), 200), 2, 2);
    Bytes const element = bytesOf(*mux.read(1));
    ASSERT_EQ(element.size(), 1920u * 32 + 4);
    EXPECT_EQ(element.first(4), hex("80 8007 03")) << "valid flags, 1920 samples, two channels";

    // The status is 85h: professional, 48000 Hz, no emphasis told; then code
    // 1 of the word length. A sample without sound has neither F nor C.
    auto const sample = [&](UInt64 n)
    {
        return Bytes(element.begin() + 4 + 32 * n, element.begin() + 36 + 32 * n);
    };
    Bytes const silence = hex("02000090 03000090 04000090 05000090 06000090 07000090");
    EXPECT_EQ(sample(0), hex("08402341 098067C5") + silence);
    EXPECT_EQ(sample(1), hex("00000088 01F0FF87") + silence);
    EXPECT_EQ(sample(7), hex("00000048 01F0FF47") + silence) << "bit 7 is set";
    EXPECT_EQ(sample(192)[0], 0x08) << "the next block begins";
    EXPECT_EQ(sample(201), hex("00000090 01000090") + silence);
    EXPECT_TRUE(mux.endOfStream());
    EXPECT_EQ(mux.read(1)->size(), 0u);
}

TEST(S331MMux, CountsSamplesInFives)
{
    S331MMux mux(Rational<int>(30000, 1001));
    Bytes heads;
    for (int i = 0; i < 6; ++i)
        heads += bytesOf(*mux.read(0)).first(4);
    EXPECT_EQ(heads, hex("82 4106 00  83 4206 00  84 4106 00  85 4206 00  81 4206 00  82 4106 00"));
    EXPECT_EQ(mux.skip(1), 1602u * 32 + 4) << "silence has no end";
    EXPECT_EQ(mux.absoluteOffset(), (3u * 1601 + 4 * 1602) * 32 + 7 * 4);
}

TEST(S331M, GivesTheSoundBackThatWentIn)
{
    std::tuple<char const *, unsigned int, short, std::vector<unsigned short>, unsigned char> const cases[] = {
        {"stereo", 2, 16, {2}, 0x03},
        {"mono pairs", 3, 24, {1, 1, 2, 1, 1}, 0x3F},
        {"eight channels", 3, 24, {8}, 0xFF},
        {"all, and one too many", 2, 16, {2, 2, 4, 2}, 0xFF},
        {"the last of five is left out", 1, 20, {5}, 0x0F},
    };

    UInt64 const total = 2 * 1920 + 100;
    std::mt19937 random(1);
    for (auto const & [name, sampleSize, wordLength, channelCounts, flags] : cases)
    {
        SCOPED_TRACE(name);
        unsigned int const count = std::accumulate(channelCounts.begin(), channelCounts.end(), 0u);
        std::vector<Bytes> wanted = randomChannels(count, total, sampleSize, random);
        S331MMux mux(25);
        unsigned int first = 0;
        for (unsigned short const channels : channelCounts)
        {
            addPCM(mux, interleaved(wanted, first, channels, sampleSize), channels, sampleSize);
            first += channels;
        }
        Bytes const elements = allElements(mux);
        ASSERT_EQ(elements.size(), 3u * (1920 * 32 + 4));
        EXPECT_EQ(elements[3], flags);

        wanted.resize(CHANNELS);
        for (bool const ignore : {false, true})
        {
            for (unsigned int n = 0; n < CHANNELS; ++n)
            {
                wanted[n].resize(flags >> n & 1 ? 3 * total : 0);
                wanted[n] += times(ignore ? hex("000000") : NO_SOUND, 3 * 1920 - wanted[n].size() / 3);
            }
            for (unsigned char const perStream : {1, 2, 4, 8})
            {
                Sound sound(perStream);
                sound.ignoreValidChannelFlag(ignore);
                sound.take(elements, 999);
                EXPECT_EQ(sound.channelValidFlags(), flags);
                EXPECT_EQ(sound.infos[0], std::make_pair(Rational<int>(48000), wordLength));
                for (unsigned int n = 0; n < sound.streams.size(); ++n)
                    EXPECT_TRUE(sound.streams[n] == interleaved(wanted, n * perStream, perStream, 3)) << n;
            }
        }
    }
}

TEST(S331MMux, EndsWithTheFirstStreamThatEnds)
{
    S331MMux mux(25);
    addPCM(mux, Bytes(4 * 1920 * 3), 2, 2);
    addPCM(mux, Bytes(4 * 1920 + 3), 2, 2);
    EXPECT_EQ(allElements(mux).size(), 2u * (1920 * 32 + 4)) << "a part of a sample is left, and dropped";
}

TEST(S331MMux, TakesTheLowValidBits)
{
    S331MMux mux(25);
    mux.addPCMStream(streamOf(hex("FFFFFF 563412")), 24, 20, 2, 48000, 6);
    std::vector<Bytes> const channels = channelsOf(bytesOf(*mux.read(1)));
    EXPECT_EQ(channels[0].first(3), hex("FFFF0F"));
    EXPECT_EQ(channels[1].first(3), hex("563402"));
}

TEST(S331MMux, OpensWaves)
{
    Bytes const stereo = waveFile(waveChunk("fmt ", PCM_FORMAT) + waveChunk("data", hex("0100 0200 03")) + hex("41"));
    Bytes const mono =
        waveFile(waveChunk("fmt ", hex("0100 0100 80BB0000 00770100 0200 1000")) + waveChunk("data", hex("0A00 0B00")));
    S331MMux mux(25);
    mux.addWaveStream(streamOf(stereo));
    mux.addWaveStream(streamOf(mono));
    addPCM(mux, hex("1A00 1B00"), 1, 2);
    Bytes const elements = allElements(mux);
    EXPECT_EQ(elements.size(), 1920u * 32 + 4) << "bytes behind the last chunk keep no one waiting";

    std::vector<Bytes> const channels = channelsOf(elements);
    EXPECT_EQ(channels[0].first(6), hex("000100") + NO_SOUND);
    EXPECT_EQ(channels[1].first(6), hex("000200") + NO_SOUND);
    EXPECT_EQ(channels[2].first(9), hex("000A00 000B00") + NO_SOUND);
    EXPECT_EQ(channels[3].first(9), hex("001A00 001B00") + NO_SOUND);
}

TEST(S331MMux, CarriesTheBitsOfAES3)
{
    // Reversed, as they are packed: A is 1234h with F and U, B is 8001h with
    // C and V. Then a packet without payload, and one that is cut off.
    Bytes const pair = hex("2C 48 58 00 1A");
    S331MMux mux(25);
    mux.addAES3Stream(streamOf(hex("0005 0000") + pair + hex("0000 0000") + hex("000F 0000") + pair + hex("FFFF")));
    Bytes const elements = allElements(mux);
    ASSERT_EQ(elements.size(), 1920u * 32 + 4);
    EXPECT_EQ(Bytes(&elements[4], &elements[12]), hex("08402321 09100058"));
    EXPECT_EQ(Bytes(&elements[36], &elements[44]), hex("08402321 09100058"));
    EXPECT_EQ(Bytes(&elements[68], &elements[76]), hex("00000090 01000090"));

    auto const read = [](Bytes const & stream)
    {
        S331MMux mux(25);
        mux.addAES3Stream(streamOf(stream));
        return mux.read(1);
    };
    EXPECT_FAILURE(InvalidFormat,
                   "payloadLength % bytesPerSample_ == 0: "
                   "A AES packet contains a number of bytes that is not a multiple of the sample size.",
                   read(hex("0006 0000") + pair + hex("00")));
    EXPECT_FAILURE(InvalidFormat, "AES3 S302M stream contains an invalid number of bits per sample",
                   read(hex("0005 0030") + pair));
    EXPECT_THROW(read(hex("0006 0010") + pair + hex("00")), Exceptions::NotImplemented);
    EXPECT_THROW(read(hex("0005 00")), Exceptions::NotEnoughData);
}

TEST(S331MMux, RefusesStreamsThatDoNotGoTogether)
{
    struct Stream
    {
        char kind;
        unsigned short bits, valid, channels;
        unsigned int rate;
        unsigned short align;
    };
    Stream const mono{'P', 16, 16, 1, 48000, 2}, stereo{'P', 16, 16, 2, 48000, 4}, aes3{'A', 0, 0, 0, 0, 0};
    auto const start = [](std::vector<Stream> const & streams)
    {
        S331MMux mux(25);
        for (Stream const & s : streams)
            if (s.kind == 'A')
                mux.addAES3Stream(streamOf(hex("0000 0000")));
            else
                mux.addPCMStream(streamOf(Bytes(8)), s.bits, s.valid, s.channels, s.rate, s.align);
        return mux.read(1);
    };

    std::string const pairs = "this -> isMonoAudioMixerComplete (): ";
    std::string const info = "lastSourceInfo -> pcmInfo.";
    std::string const differ = "Trying to add mono channels with different ";
    std::pair<std::vector<Stream>, std::string> const cases[] = {
        {{mono, aes3}, pairs + "A pair of mono audio channels must be provided prior to aes3 essence."},
        {{mono, stereo}, pairs + "A pair of mono audio channels must be provided prior to multiple audio channels."},
        {{mono, mono, mono}, pairs + "Mono audio channels must always be provided in pairs."},
        {{mono, {'P', 24, 16, 1, 48000, 2}}, info + "bitsPerSample == bitsPerSample: " + differ + "sampling bits."},
        {{mono, {'P', 16, 15, 1, 48000, 2}},
         info + "validBitsPerSample == validBitsPerSample: " + differ + "valid sampling bits."},
        {{mono, {'P', 16, 16, 1, 44100, 2}},
         info + "samplingFrequency == samplingFrequency: " + differ + "sampling frequency."},
        {{mono, {'P', 16, 16, 1, 48000, 3}}, "last.blockAlign == added.blockAlign: " + differ + "bytes per sample."},
        {{{'P', 16, 16, 6, 48000, 12}, {'P', 16, 16, 4, 48000, 8}},
         "words_ == S331M::CHANNELS: The channels of all streams don't make the eight of an element"},
        {std::vector<Stream>(9, stereo),
         "initialSources_.size () < MAXIMUM_NUMBER_OF_SOURCES: Trying do add more sources than allowed in S331Mux."},
    };
    for (auto const & [mixed, message] : cases)
        EXPECT_FAILURE(OperationNotAllowed, message.c_str(), start(mixed));

    EXPECT_FAILURE(InvalidFormat,
                   "bitsPerSample_ == bitsPerSample: "
                   "Trying to multiplex AES sources with different number of bits per sample",
                   start({aes3, {'P', 24, 24, 2, 48000, 6}}));
    EXPECT_FAILURE(InvalidValue, "Invalid source word length", start({{'P', 16, 16, 2, 12345, 4}}));
    Stream const bad[] = {{'P', 32, 32, 2, 48000, 8},
                          {'P', 32, 24, 2, 48000, 6},
                          {'P', 16, 16, 2, 48000, 1},
                          {'P', 16, 16, 0, 48000, 0},
                          {'P', 8, 8, 258, 48000, 258}};
    for (Stream const & stream : bad)
        EXPECT_THROW(start({stream}), Exceptions::InvalidValue);

    for (Rational<int> const & rate : {Rational<int>(0), Rational<int>(-25), Rational<int>(48001), Rational<int>(1, 2)})
        EXPECT_THROW(S331MMux{rate}, Exceptions::InvalidValue);
    S331MMux begun(25);
    begun.skip(1);
    EXPECT_THROW(addPCM(begun, Bytes(4), 2, 2), Exceptions::OperationNotAllowed);
    S331MMux wave(25);
    wave.addWaveStream(streamOf(hex("00")));
    EXPECT_FAILURE(InvalidFormat, "pcmSource -> preload (): Unable to read Wave header from stream.", wave.skip(1));
}

TEST(S331MDemux, TakesAnyCutOfTheStream)
{
    std::mt19937 random(2);
    Bytes const channel = randomChannel(500, 3, random);
    S331MMux mux(Rational<int>(480));
    addPCM(mux, interleaved({channel, channel}, 0, 2, 3), 2, 3);
    Bytes const elements = hex("80 0000 FF") + allElements(mux);

    for (UInt64 const longest : {1, 50, 5000})
    {
        Sound sound(2);
        for (Bytes const & piece : cutAtRandom(elements, longest, random))
            sound.take(piece);
        EXPECT_EQ(sound.channelValidFlags(), 0x03) << "an element without samples tells nothing";
        EXPECT_EQ(sound.streams[0], interleaved({channel, channel}, 0, 2, 3));
        EXPECT_EQ(sound.infos[0].second, 0) << "after 100 samples the status isn't whole";
    }
}

TEST(S331MDemux, GoesByTheFlagsAndStartsAnewAfterAFailure)
{
    Bytes const element = hex("00 0200 01") + times(hex("F8FFFF0F") + Bytes(28), 2);
    Sound sound(8);
    sound.take(element);
    EXPECT_EQ(sound.infos[0], std::make_pair(Rational<int>(), short(0))) << "F counts only where it is valid";
    EXPECT_EQ(sound.streams[0], times(hex("FFFFFF") + times(NO_SOUND, 7), 2));

    Bytes broken = element;
    broken[0] = 0x80;
    EXPECT_FAILURE(InvalidFormat, "!(recording_ && !complete_ && framing): Framing bit set during a frame.",
                   sound.take(broken));
    sound.take(element);
    EXPECT_EQ(sound.streams[0].size(), 2u * 2 * 24);

    for (unsigned char const channels : {0, 3, 5, 16})
        EXPECT_THROW(Sound demux(channels), Exceptions::InvalidValue);
}

// Sound of any bytes, as ffmpeg reads it.
std::string inputOf(TemporaryFile const & pcm, int bits, int channels)
{
    return "-f s" + std::to_string(bits) + "le -ar 48000 -ac " + std::to_string(channels) + " -i " +
           pcm.path().string();
}

TEST(S331MMux, TakesTheAES3OfFFmpeg)
{
    VANTRY_NEEDS_FFMPEG();
    std::mt19937 random(3);
    for (unsigned int const bits : {16, 24})
        for (unsigned int const count : {2, 6})
        {
            std::vector<Bytes> const channels = randomChannels(count, 4096, bits / 8, random);
            TemporaryFile const pcm(interleaved(channels, 0, count, bits / 8));
            FFmpegFile const packets(inputOf(pcm, bits, count) + " -map 0:a -c:a s302m -strict -2 -f data");

            S331MMux mux(Rational<int>(30000, 1001));
            mux.addAES3Stream(streamOf(packets.content()));
            std::vector<Bytes> const got = channelsOf(allElements(mux));
            for (unsigned int n = 0; n < count; ++n)
                EXPECT_TRUE(got[n].first(3 * 4096) == channels[n]) << bits << " bits, channel " << n;
        }
}

TEST(S331MDemux, GivesTheSoundOfAnFFmpegD10File)
{
    VANTRY_NEEDS_FFMPEG();
    KLV::Key const element(hex("060E2B34 01020101 0D010301 06011000").data());
    std::mt19937 random(4);
    for (unsigned int const bits : {16, 24})
    {
        std::vector<Bytes> const channels = randomChannels(4, 10 * 1920, bits / 8, random);
        TemporaryFile const pcm(interleaved(channels, 0, 4, bits / 8));
        FFmpegFile const file("-f lavfi -i testsrc2=s=720x608:r=25:d=0.4 " + inputOf(pcm, bits, 4) + " -c:a copy " +
                              D10_PICTURE + "-f mxf_d10");

        Sound sound(1);
        BytesSource source(file.content());
        KLV::Reader reader(source);
        for (UInt64 skipped = 0; !source.endOfStream();)
        {
            auto const packet = reader.nextKLV(skipped, 0);
            if (packet->key() == element)
                sound.handleData(packet->value());
        }
        EXPECT_EQ(sound.channelValidFlags(), 0x0F);
        for (unsigned int n = 0; n < channels.size(); ++n)
            EXPECT_TRUE(sound.streams[n] == channels[n]) << bits << " bits, channel " << n;
    }
}

}}

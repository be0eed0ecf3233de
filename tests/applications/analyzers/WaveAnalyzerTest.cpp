#include "Analyzers/WaveAnalyzer.h"

#include "Analyzers/SampleCadence.h"
#include "Metadata/Structural/AES3AudioEssenceDescriptor.h"
#include "support/AnalyzedEssence.h"
#include "support/Failure.h"
#include "support/WaveFile.h"

#include <sstream>

namespace Vantry { namespace Tests {

using Analyzers::SampleCadence;
using Analyzers::WaveAnalyzer;
using Labels = GenericContainer::RP224UniversalLabels;
using Rate = Templates::Rational<int>;

// The "fmt " chunk's value.
Bytes format(unsigned channels, unsigned bits, unsigned rate, unsigned tag = 1)
{
    unsigned const block = channels * ((bits + 7) / 8);
    return littleEndian(tag, 2) + littleEndian(channels, 2) + littleEndian(rate, 4) + littleEndian(rate * block, 4) +
           littleEndian(block, 2) + littleEndian(bits, 2);
}

Bytes wave(Bytes const & formatChunk, Bytes const & samples)
{
    return waveFile(waveChunk("LIST", counting(9)) + hex("00") + waveChunk("fmt ", formatChunk) +
                    waveChunk("data", samples));
}

class WaveAnalyzerTest : public testing::Test
{
protected:
    WaveAnalyzer & analyze(Bytes const & stream, Rate const & rate, Labels::WrapKind wrapKind = Labels::FRAME,
                           int channel = WaveAnalyzer::ALL_CHANNELS, Labels::Mapping mapping = Labels::BROADCAST_WAVE)
    {
        analyzer_ = std::make_unique<WaveAnalyzer>(pieceSource(blocks_, cutAtRandom(stream, 4000, random_)), wrapKind,
                                                   mapping, channel);
        analyzer_->editRate(rate);
        EXPECT_TRUE(analyzer_->preload());
        EXPECT_TRUE(analyzer_->preload());
        return *analyzer_;
    }

    std::mt19937 random_{3};
    CountingBlocks blocks_;
    std::unique_ptr<WaveAnalyzer> analyzer_;
};

TEST(SampleCadence, KeepsSoundBesideThePicture)
{
    Rate const rates[] = {25, 24, 50, Rate(24000, 1001), Rate(30000, 1001), Rate(60000, 1001), Rate(100, 3), 48000};
    for (unsigned int samplingRate : {48000, 96000, 44100})
        for (Rate const & rate : rates)
        {
            if (rate.numerator() > int(samplingRate))
                continue;
            SampleCadence const cadence(samplingRate, rate);
            Int64 samples = 0;
            EXPECT_EQ(cadence.editUnits(0), 0u);
            for (UInt64 i = 0; i < 500; ++i)
            {
                samples += cadence.samples(i);
                EXPECT_LE(cadence.samples(i), cadence.maximum());
                EXPECT_EQ(cadence.editUnits(UInt64(samples)), i + 1);
                EXPECT_EQ(cadence.editUnits(UInt64(samples) + 1), i + 2);
                EXPECT_LE(std::abs(samples * rate.numerator() - Int64(i + 1) * samplingRate * rate.denominator()),
                          rate.numerator());
            }
        }
    EXPECT_TRUE(SampleCadence(48000, Rate(24000, 1001)).isConstant());
    EXPECT_EQ(SampleCadence(48000, Rate(30000, 1001)).samples(6), 1601u);
    EXPECT_FAILURE(InvalidValue, "An edit unit of sound has one sample at least", SampleCadence(48000, 48001));
}

TEST_F(WaveAnalyzerTest, CutsSoundByTheCadence)
{
    std::tuple<unsigned, unsigned, Rate, std::vector<unsigned>> const cases[] = {
        {1, 16, 25, {1920, 1920}},
        {2, 20, 50, {960, 960, 960}},
        {8, 24, Rate(30000, 1001), {1602, 1601, 1602, 1601, 1602, 1602}},
        {3, 32, Rate(60000, 1001), {801, 801, 800}},
        {1, 8, Rate(100, 3), {1440, 1440}},
    };
    for (auto const & [channels, bits, rate, samples] : cases)
    {
        unsigned const block = channels * ((bits + 7) / 8);
        Bytes const sound = counting(std::accumulate(samples.begin(), samples.end(), 0u) * block, 1);
        WaveAnalyzer & analyzer = analyze(wave(format(channels, bits, 48000), sound), rate);
        EXPECT_FALSE(analyzer.done());
        EXPECT_EQ(analyzer.getDuration(), Rate(int(samples.size())) / rate);
        EXPECT_EQ(analyzer.channelsInStream(), channels);

        std::vector<Unit> const units = unitsOf(analyzer);
        ASSERT_EQ(units.size(), samples.size());
        EXPECT_EQ(bytesOf(units), sound);
        for (std::size_t i = 0; i < units.size(); ++i)
        {
            EXPECT_EQ(units[i].data.size(), samples[i] * block);
            EXPECT_EQ(units[i].duration, Rate(int(samples[i]), 48000));
        }
        EXPECT_TRUE(analyzer.done());
        EXPECT_EQ(analyzer.isCBE(), rate.denominator() != 1001);
        EXPECT_EQ(analyzer.boundedEditUnitSize(), samples[0] * block);
    }
}

TEST_F(WaveAnalyzerTest, EndsWithSilenceInAFrameAndAsItIsInAClip)
{
    Bytes const sound = counting(5 * 4, 1);
    Bytes const stream = wave(format(2, 16, 100), sound + hex("FF FF"));
    EXPECT_EQ(bytesOf(unitsOf(analyze(stream, 25))), sound + repeated(3 * 4, 0));

    WaveAnalyzer & clip = analyze(stream, 25, Labels::CLIP);
    EXPECT_EQ(clip.getDuration(), Rate(2, 25));
    clip.setDuration(-1);
    EXPECT_EQ(clip.getDuration(), Rate(-1));
    std::vector<Unit> const units = unitsOf(clip);
    EXPECT_EQ(bytesOf(units), sound);
    EXPECT_EQ(units.back().duration, Rate(1, 100));

    GenericContainer::EditUnit unit;
    unit.duration = Rate(3, 25);
    clip.fillNullEssence(unit);
    EXPECT_EQ(bytesOf(unit.data), repeated(12 * 4, 0));
}

TEST_F(WaveAnalyzerTest, BeginsAtTheTimeOfItsBroadcastExtension)
{
    Bytes const sound = waveChunk("fmt ", format(1, 16, 48000)) + waveChunk("data", repeated(2 * 4000, 0));
    auto const startAt = [&](UInt64 samples, Rate const & rate)
    {
        Bytes const extension = repeated(338, 'x') + littleEndian(samples, 8) + repeated(256, 0);
        WaveAnalyzer & analyzer = analyze(waveFile(waveChunk("bext", extension) + sound), rate);
        std::ostringstream text;
        text << analyzer.currentTimeCode();
        return text.str();
    };
    UInt64 const tenHours = UInt64(48000) * 36000;
    EXPECT_EQ(startAt(tenHours, 25), "10:00:00:00");
    EXPECT_EQ(startAt(tenHours + 2 * 1920 - 1, 25), "10:00:00:01");
    EXPECT_EQ(startAt(tenHours + UInt64(48000) * 86400, 50), "10:00:00:00.0") << "the next day";
    EXPECT_EQ(startAt(tenHours, Rate(30000, 1001)).substr(0, 8), "10:00:00");
    EXPECT_FALSE(analyze(waveFile(waveChunk("bext", repeated(345, 0)) + sound), 25).currentTimeCode().isDefined());
    EXPECT_FALSE(analyze(waveFile(sound), 25).currentTimeCode().isDefined());
}

TEST_F(WaveAnalyzerTest, PicksAChannel)
{
    Bytes const stream = wave(format(3, 24, 100), counting(9 * 8));
    Bytes const sound = bytesOf(unitsOf(analyze(stream, 25, Labels::FRAME, 1)));
    ASSERT_EQ(sound.size(), 8u * 3);
    for (unsigned i = 0; i < 8; ++i)
        EXPECT_EQ(Bytes(sound.begin() + 3 * i, sound.begin() + 3 * i + 3), counting(3, (unsigned char)(9 * i + 3)));
    EXPECT_EQ(analyzer_->boundedEditUnitSize(), 4u * 3);
}

TEST_F(WaveAnalyzerTest, DescribesTheSound)
{
    using Descriptor = Metadata::Structural::AES3AudioEssenceDescriptor;
    Bytes const extensible = format(2, 24, 48000, 0xFFFE) + littleEndian(22, 2) + littleEndian(20, 2) +
                             hex("00000000") + hex("01000000 0000 1000 8000 00AA00389B71");
    for (bool const isClip : {false, true})
    {
        DescribedEssence essence;
        WaveAnalyzer & analyzer = analyze(wave(extensible, counting(3 * 1920 * 6)), 25,
                                          isClip ? Labels::CLIP : Labels::FRAME, 1, Labels::AES3);
        EXPECT_EQ(analyzer.essenceElementType(), isClip ? 4 : 3);
        EXPECT_EQ(analyzer.itemTypeIdentifier(), 0x16);
        Labels::EssenceContainerInfo const info = Labels::essenceContainerInfo(analyzer.universalLabel());
        EXPECT_EQ(info.mapping, Labels::AES3);
        EXPECT_EQ(info.wrapKind, isClip ? Labels::CLIP : Labels::FRAME);

        ASSERT_TRUE(essence.describe(analyzer));
        EXPECT_FALSE(essence.describe(analyzer));
        EXPECT_EQ(essence.duration(), -1);
        unitsOf(analyzer);
        EXPECT_TRUE(analyzer.finalize());
        EXPECT_EQ(essence.duration(), 3);

        auto const & sound = essence.descriptor<Descriptor>();
        EXPECT_EQ(*sound.linkedTrack(), 7u);
        EXPECT_EQ(*sound.sampleRate(), Types::Rational(isClip ? 48000 : 25, 1));
        EXPECT_EQ(sound.containerDuration()->value(), isClip ? 3 * 1920 : 3);
        EXPECT_EQ(*sound.channelCount(), 1u);
        EXPECT_EQ(*sound.quantizationBits(), 20u);
        EXPECT_EQ(*sound.blockAlign(), 3u);
        EXPECT_EQ(*sound.avgBps(), 144000u);
    }
}

TEST_F(WaveAnalyzerTest, RefusesWhatIsNoPCMOrCutOff)
{
    auto const load = [this](Bytes const & stream, int channel = WaveAnalyzer::ALL_CHANNELS)
    {
        WaveAnalyzer analyzer(pieceSource(blocks_, {stream}), Labels::FRAME, Labels::BROADCAST_WAVE, channel);
        analyzer.editRate(25);
        bool const isWave = analyzer.preload();
        unitsOf(analyzer);
        return isWave;
    };
    EXPECT_FALSE(load({}));
    EXPECT_FALSE(load(hex("00 00 01 B3 00 00 00 00 00 00 00 00")));

    Bytes const stereo = format(2, 16, 100);
    EXPECT_FAILURE(InvalidFormat, "The wave format that ends at byte 54 isn't PCM",
                   load(wave(format(2, 8, 100, 6), counting(8))));
    EXPECT_FAILURE(InvalidFormat,
                   "The wave format that ends at byte 54 has 0 channels of 16 bits in blocks of 0 bytes at 100 Hz",
                   load(wave(format(0, 16, 100), counting(8))));
    EXPECT_FAILURE(InvalidFormat,
                   "The wave format that ends at byte 54 has 1 channels of 64 bits in blocks of 8 bytes at 100 Hz",
                   load(wave(format(1, 64, 100), counting(8))));
    EXPECT_FAILURE(InvalidFormat, "The wave stream has no channel 2 but 2 channels",
                   load(wave(stereo, counting(8)), 2));
    EXPECT_FAILURE(InvalidFormat, "The wave stream ends at byte 38 in its format", load(wave(stereo, {}).first(38)));
    EXPECT_FAILURE(InvalidFormat, "The wave stream ends at byte 53 in its format", load(wave(stereo, {}).first(53)));
    EXPECT_FAILURE(InvalidFormat, "The wave stream ends at byte 54 without sound", load(wave(stereo, {}).first(54)));
    EXPECT_FAILURE(InvalidFormat, "The wave stream ends at byte 70, 12 bytes short of its sound",
                   load(wave(stereo, counting(20)).first(70)));

    Bytes const sizes = hex("FFFFFFFF FFFFFF7F FFFFFFFF FFFFFF7F 00000000 00000000 00000000");
    Bytes const endless = waveFile(
        waveChunk("ds64", sizes) + waveChunk("fmt ", stereo) + waveChunk("data", counting(20), 0xFFFFFFFF), "RF64");
    EXPECT_EQ(analyze(endless, 25).getDuration(), Rate(-1)) << "a claim of ages";

    Bytes open = wave(stereo, counting(20));
    std::fill_n(open.end() - 24, 4, 0xFF);
    EXPECT_EQ(bytesOf(unitsOf(analyze(open, 25, Labels::CLIP))), counting(20)) << "a length that isn't known";
}

}}

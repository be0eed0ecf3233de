#include "Analyzers/WaveAnalyzer.h"

#include "Analyzers/SampleCadence.h"
#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Exceptions/InvalidFormat.h"
#include "GenericContainer/EditUnit.h"
#include "Metadata/Structural/AES3AudioEssenceDescriptor.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Types/Boolean.h"
#include "Types/Rational.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UniversalLabel.h"
#include "WaveStream.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

namespace Vantry { namespace Analyzers {

using GenericContainer::EditUnit;
using Rate = Templates::Rational<int>;

namespace {

// A header may claim more sound than there is time for.
UInt64 const MOST_UNITS = std::numeric_limits<int>::max();

unsigned int const SECONDS_OF_DAY = 24 * 3600;

// Above it nothing counts frames.
int const FASTEST_TIME_CODE = 120;

// SMPTE 382M.
ElementCoding const WAVE = {0x16,
                            0x01,
                            {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x01, //
                             0x0D, 0x01, 0x03, 0x01, 0x02, 0x06, 0x01, 0x00},
                            14};
ElementCoding const AES3 = {0x16,
                            0x03,
                            {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x01, //
                             0x0D, 0x01, 0x03, 0x01, 0x02, 0x06, 0x03, 0x00},
                            14};

}

class WaveAnalyzer::Impl
{
public:
    Impl(Templates::SharedPtr<DataIO::SliceSource> source, Labels::Mapping kind, int picked, bool fills) :
        stream(std::move(source)), mapping(kind), channel(picked), fillsLastEditUnit(fills)
    {
    }

    bool load()
    {
        if (isLoaded)
            return true;
        if (!stream.preload())
            return false;

        checkChannel();
        stream.goToSound();
        isLoaded = true;
        adopt(rate);
        return true;
    }

    // The cadence takes both rates.
    void adopt(Rate const & editRate)
    {
        rate = editRate;
        if (isLoaded && rate.numerator() > 0)
            cadence.emplace(stream.samplesPerSecond(), rate);
    }

    bool picksChannel() const { return channel != ALL_CHANNELS; }
    unsigned int channels() const { return picksChannel() ? 1 : stream.numberOfChannels(); }
    unsigned int bytesPerSample() const { return stream.numberBlockAlign() / stream.numberOfChannels(); }
    unsigned int blockAlign() const { return channels() * bytesPerSample(); }
    unsigned int editUnitSize() const { return cadence ? cadence->maximum() * blockAlign() : 0; }

    Rate secondsOf(UInt64 samples) const
    {
        return Rate(static_cast<int>(samples), static_cast<int>(stream.samplesPerSecond()));
    }

    bool isDone() { return isLoaded && stream.isDone(); }

    // The samples of the next edit unit, as far as there are any; returns
    // their number.
    UInt64 takeSamples(DataIO::Chain & data)
    {
        DataIO::Chain bytes;
        UInt64 const samples = stream.takeSamples(cadence->samples(editUnits), bytes);
        if (picksChannel())
            data.push_back(pick(*bytes.makeSlice(0, bytes.data_size())));
        else
            data.push_back(bytes);
        return samples;
    }

    // Of the next edit unit, counted from midnight on.
    std::optional<Int64> editUnitOfDay() const
    {
        if (!isLoaded || !cadence || !stream.timeReference())
            return std::nullopt;
        UInt64 const samplesPerSecond = stream.samplesPerSecond();
        UInt64 const second = *stream.timeReference() / samplesPerSecond % SECONDS_OF_DAY;
        UInt64 const rest = *stream.timeReference() % samplesPerSecond;
        auto const numerator = static_cast<UInt64>(rate.numerator());
        UInt64 const start =
            (second * numerator + rest * numerator / samplesPerSecond) / static_cast<UInt64>(rate.denominator());
        return static_cast<Int64>(start + editUnits);
    }

    // `samples` of silence, all of them on one block.
    void addSilence(UInt64 samples, DataIO::Chain & data)
    {
        UInt64 const blockSize = std::max(1u, editUnitSize());
        if (silence.block() == nullptr)
        {
            silence = DataIO::Memory::MemoryBlockFactory::instance().create(blockSize);
            unsigned char const zero = stream.bitsPerSample() <= 8 ? 0x80 : 0;
            std::fill_n(silence.block()->data(), blockSize, zero);
        }
        for (UInt64 left = samples * blockAlign(); left != 0;)
        {
            UInt64 const size = std::min(left, silence.block()->size());
            data.push_back(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(silence.block(), 0, size)));
            left -= size;
        }
    }

    // Whole edit units; the last may not be full.
    Rate durationOfStream()
    {
        std::optional<UInt64> const length = load() && cadence ? stream.length() : std::nullopt;
        if (!length)
            return -1;
        UInt64 const units = cadence->editUnits(*length / stream.numberBlockAlign());
        if (units > MOST_UNITS)
            return -1;
        Templates::Rational<Int64> const seconds(static_cast<Int64>(units) * rate.denominator(), rate.numerator());
        if (seconds.numerator() > std::numeric_limits<int>::max())
            return -1;
        return Rate(static_cast<int>(seconds.numerator()), static_cast<int>(seconds.denominator()));
    }

    WaveStream stream;
    Labels::Mapping const mapping;
    int const channel;
    bool fillsLastEditUnit;
    Rate rate;
    std::optional<SampleCadence> cadence;
    UInt64 editUnits = 0;
    UInt64 samples = 0;

private:
    void checkChannel()
    {
        unsigned int const streamChannels = stream.numberOfChannels();
        if (picksChannel() && static_cast<unsigned int>(channel) >= streamChannels)
        {
            std::string const text = "The wave stream has no channel " + std::to_string(channel) + " but " +
                                     std::to_string(streamChannels) + " channels";
            throw Exceptions::InvalidFormat(text.c_str(), __FILE__, __LINE__);
        }
    }

    Templates::auto_ptr<DataIO::Slice> pick(DataIO::Slice const & blocks) const
    {
        UInt64 const stride = stream.numberBlockAlign();
        UInt64 const size = blocks.size() / stride * bytesPerSample();
        DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
        unsigned char * to = block.block()->data();
        unsigned char const * const first = blocks.begin() + static_cast<UInt64>(channel) * bytesPerSample();
        for (unsigned char const * from = first; from < blocks.end(); from += stride)
            to = std::copy_n(from, bytesPerSample(), to);
        return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, size));
    }

    bool isLoaded = false;
    DataIO::BlockHolder silence;
};

WaveAnalyzer::WaveAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source, Labels::WrapKind wrapKind,
                           Labels::Mapping mapping, int channel) :
    ElementAnalyzer(mapping == Labels::AES3 ? AES3 : WAVE, wrapKind),
    impl_(std::make_unique<Impl>(std::move(source), mapping, channel, wrapKind == Labels::FRAME))
{
}

WaveAnalyzer::~WaveAnalyzer() = default;

void WaveAnalyzer::fillLastEditUnit(bool fill)
{
    impl_->fillsLastEditUnit = fill;
}

unsigned int WaveAnalyzer::channelsInStream() const
{
    return impl_->stream.numberOfChannels();
}

Rate WaveAnalyzer::editRate()
{
    return impl_->rate;
}

void WaveAnalyzer::editRate(Rate const & containerRate)
{
    impl_->adopt(containerRate);
}

UInt64 WaveAnalyzer::maximumToSkip() const
{
    return std::numeric_limits<UInt64>::max();
}

void WaveAnalyzer::maximumToSkip(UInt64) {}

bool WaveAnalyzer::preload()
{
    return impl_->load();
}

bool WaveAnalyzer::nextEditUnit(EditUnit & unit)
{
    unit.valid = false;
    if (!preload() || !impl_->cadence || impl_->isDone())
        return false;

    UInt64 samples = impl_->takeSamples(unit.data);
    if (samples == 0)
        return false;

    UInt64 const whole = impl_->cadence->samples(impl_->editUnits);
    if (samples < whole && impl_->fillsLastEditUnit)
    {
        impl_->addSilence(whole - samples, unit.data);
        samples = whole;
    }
    unit.valid = true;
    unit.duration = impl_->secondsOf(samples);
    impl_->samples += samples;
    ++impl_->editUnits;
    return true;
}

void WaveAnalyzer::fillNullEssence(EditUnit & unit)
{
    Templates::Rational<Int64> const wanted(Int64(unit.duration.numerator()) * impl_->stream.samplesPerSecond(),
                                            unit.duration.denominator());
    bool const isOneUnit = impl_->cadence && unit.duration * impl_->rate == 1;
    UInt64 const samples = isOneUnit ? impl_->cadence->samples(impl_->editUnits)
                                     : static_cast<UInt64>(wanted.numerator() / wanted.denominator());
    impl_->addSilence(samples, unit.data);
    impl_->samples += samples;
    ++impl_->editUnits;
}

bool WaveAnalyzer::isCBE() const
{
    return impl_->cadence && impl_->cadence->isConstant();
}

void WaveAnalyzer::boundedEditUnitSize(int) {}

unsigned int WaveAnalyzer::boundedEditUnitSize() const
{
    return impl_->editUnitSize();
}

Utils::TimeCode WaveAnalyzer::currentTimeCode()
{
    std::optional<Int64> const editUnit = preload() ? impl_->editUnitOfDay() : std::nullopt;
    Rate const & rate = impl_->rate;
    if (!editUnit || rate > FASTEST_TIME_CODE)
        return Utils::TimeCode();

    int const base = (rate.numerator() + rate.denominator() - 1) / rate.denominator();
    bool const dropFrame = rate.denominator() != 1 && (base == 30 || base == 60);
    return Utils::TimeCode(static_cast<unsigned char>(base), *editUnit, dropFrame);
}

bool WaveAnalyzer::done()
{
    return impl_->isDone();
}

Rate WaveAnalyzer::durationOfStream()
{
    return impl_->durationOfStream();
}

void WaveAnalyzer::describe(EssenceMetadata & metadata)
{
    // Uncompressed sound.
    static unsigned char const PCM[16] = {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x0A,
                                          0x04, 0x02, 0x02, 0x01, 0x00, 0x00, 0x00, 0x00};
    namespace Keys = Metadata::Structural::StructuralMetadataKeys;
    using Sound = Metadata::Structural::WAVEAudioEssenceDescriptor;

    WaveStream const & stream = impl_->stream;
    Rate const samplingRate(static_cast<int>(stream.samplesPerSecond()));
    auto & sound = metadata.describe<Sound>(
        impl_->mapping == Labels::AES3 ? Keys::aes3AudioEssenceDescriptor() : Keys::waveAudioEssenceDescriptor(),
        Metadata::Structural::DataDefinitionULs::audio(), universalLabel(), isClip() ? samplingRate : impl_->rate);
    put(sound, &Sound::audioSamplingRate, samplingRate.numerator(), 1);
    put(sound, &Sound::lockedUnlocked, true);
    put(sound, &Sound::channelCount, impl_->channels());
    put(sound, &Sound::quantizationBits, stream.soundBits());
    put(sound, &Sound::soundEssenceCompression, PCM);
    put(sound, &Sound::blockAlign, static_cast<unsigned short>(impl_->blockAlign()));
    put(sound, &Sound::avgBps, impl_->blockAlign() * stream.samplesPerSecond());
}

void WaveAnalyzer::complete(EssenceMetadata & metadata)
{
    metadata.finish(impl_->editUnits, isClip() ? impl_->samples : impl_->editUnits);
}

}}

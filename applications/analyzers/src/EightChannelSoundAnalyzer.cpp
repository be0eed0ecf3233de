#include "Analyzers/EightChannelSoundAnalyzer.h"

#include "Essence/AES3/S331M.h"
#include "Essence/Converters/S331MMux.h"
#include "Essence/SampleCountSelector.h"
#include "Exceptions/InvalidFormat.h"
#include "GenericContainer/EditUnit.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Types/Boolean.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"

#include <string>
#include <vector>

namespace Vantry { namespace Analyzers {

namespace S331M = Essence::AES3::S331M;
using Essence::Converters::S331MMux;
using GenericContainer::EditUnit;
using Metadata::Structural::GenericSoundEssenceDescriptor;
using Rate = Templates::Rational<int>;

namespace {

unsigned int const SAMPLING_RATE = 48000;

// SMPTE 386M; the pictures make the label whole.
ElementCoding const EIGHT_CHANNELS = {0x06,
                                      0x10,
                                      {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x01, //
                                       0x0D, 0x01, 0x03, 0x01, 0x02, 0x01, 0x00, 0x01},
                                      15};

void check(bool isSo, std::string const & otherwise)
{
    if (!isSo)
        throw Exceptions::InvalidFormat(otherwise.c_str(), __FILE__, __LINE__);
}

std::string bits(unsigned int bytes)
{
    return std::to_string(bytes * 8) + " bits";
}

}

class EightChannelSoundAnalyzer::Impl
{
public:
    explicit Impl(Types::UniversalLabel const & container) : label(container) {}

    // Left-justified samples fill their bytes, whatever number of bits the
    // wave says is valid.
    void start(Rate const & rate)
    {
        mux = std::make_unique<S331MMux>(rate);
        auto const bitsPerSample = static_cast<unsigned short>(bytesPerSample * 8);
        for (auto const & sound : sounds)
            mux->addPCMStream(sound, bitsPerSample, bitsPerSample, static_cast<unsigned short>(sound->channels()),
                              sound->samplesPerSecond(),
                              static_cast<unsigned short>(sound->channels() * bytesPerSample));
    }

    Types::UniversalLabel const label;
    std::vector<Templates::SharedPtr<WaveSound>> sounds;
    unsigned int channels = 0;
    unsigned int bytesPerSample = 0;
    bool isPairOpen = false;
    unsigned int largestElement = 0;
    std::unique_ptr<S331MMux> mux;
    UInt64 editUnits = 0;
};

EightChannelSoundAnalyzer::EightChannelSoundAnalyzer(Types::UniversalLabel const & container) :
    ElementAnalyzer(EIGHT_CHANNELS, Labels::FRAME), impl_(std::make_unique<Impl>(container))
{
}

EightChannelSoundAnalyzer::~EightChannelSoundAnalyzer() = default;

void EightChannelSoundAnalyzer::add(Templates::SharedPtr<WaveSound> const & sound)
{
    unsigned int const channels = sound->channels();
    unsigned int const bytes = sound->bytesPerSample();
    check(sound->samplesPerSecond() == SAMPLING_RATE, "has " + std::to_string(sound->samplesPerSecond()) +
                                                          " samples a second, and D-10 takes " +
                                                          std::to_string(SAMPLING_RATE));
    check(bytes == 2 || bytes == 3, "has samples of " + bits(bytes) + ", and D-10 takes 16 or 24");
    check(impl_->sounds.empty() || bytes == impl_->bytesPerSample,
          "has samples of " + bits(bytes) + ", and the sound ahead of it " + bits(impl_->bytesPerSample));
    check(impl_->channels + channels <= MOST_CHANNELS,
          "brings the sound to " + std::to_string(impl_->channels + channels) + " channels, and D-10 takes " +
              std::to_string(MOST_CHANNELS) + " at most");
    check(channels == 1 || channels % 2 == 0,
          "has " + std::to_string(channels) + " channels, and D-10 takes them in pairs");
    check(channels == 1 || !impl_->isPairOpen,
          "has " + std::to_string(channels) + " channels, and the one ahead of it waits for another to make a pair");

    impl_->sounds.push_back(sound);
    impl_->channels += channels;
    impl_->bytesPerSample = bytes;
    impl_->isPairOpen = channels == 1 && !impl_->isPairOpen;
}

bool EightChannelSoundAnalyzer::isPairOpen() const
{
    return impl_->isPairOpen;
}

bool EightChannelSoundAnalyzer::preload()
{
    if (impl_->sounds.empty() || impl_->isPairOpen)
        return false;
    Essence::SampleCountSelector const samples(static_cast<int>(SAMPLING_RATE), editRate());
    impl_->largestElement =
        static_cast<unsigned int>(sizeof(S331M::ElementHeader) + samples.maximumSampleCount() * S331M::SAMPLE_SIZE);
    return true;
}

void EightChannelSoundAnalyzer::describe(EssenceMetadata & metadata)
{
    auto & sound = metadata.describe<GenericSoundEssenceDescriptor>(
        Metadata::Structural::StructuralMetadataKeys::genericSoundEssenceDescriptor(),
        Metadata::Structural::DataDefinitionULs::audio(), universalLabel(), editRate());

    using Sound = GenericSoundEssenceDescriptor;
    put(sound, &Sound::audioSamplingRate, static_cast<int>(SAMPLING_RATE), 1);
    put(sound, &Sound::lockedUnlocked, true);
    put(sound, &Sound::channelCount, impl_->channels);
    put(sound, &Sound::quantizationBits, impl_->bytesPerSample * 8);
}

void EightChannelSoundAnalyzer::complete(EssenceMetadata & metadata)
{
    metadata.finish(impl_->editUnits, impl_->editUnits);
}

bool EightChannelSoundAnalyzer::nextEditUnit(EditUnit & unit)
{
    unit.valid = preload();
    if (!unit.valid)
        return false;

    if (!impl_->mux)
        impl_->start(editRate());
    unit.data.push_back(impl_->mux->read(boundedEditUnitSize()));
    unit.duration = Rate(1) / editRate();
    ++impl_->editUnits;
    return true;
}

Types::UniversalLabel EightChannelSoundAnalyzer::universalLabel()
{
    return impl_->label;
}

bool EightChannelSoundAnalyzer::isCBE() const
{
    return true;
}

unsigned int EightChannelSoundAnalyzer::boundedEditUnitSize() const
{
    return impl_->largestElement;
}

bool EightChannelSoundAnalyzer::done()
{
    return false;
}

}}

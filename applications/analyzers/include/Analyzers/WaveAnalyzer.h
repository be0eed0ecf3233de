#pragma once

#include "Analyzers/ElementAnalyzer.h"
#include "DataIO/SliceSource.h"
#include "GenericContainer/NullEssenceProvider.h"
#include "GenericContainer/SoundAnalyzer.h"
#include "Templates/SharedPtr.h"

#include <memory>

namespace Vantry {

/// Analyzers of real streams: each can be used as it is, and read as a model
/// for one's own.
namespace Analyzers {

/// PCM sound from a wave stream: RIFF, extensible, RF64, with or without
/// broadcast extension (SMPTE 382M).
///
/// Bits, channels and rate are those of the stream; samples go into the
/// container as they are, uncopied unless one channel is picked. Edit units
/// are those of the container; where it has an NTSC rate they differ in their
/// number of samples. A last edit unit that isn't full is filled with silence
/// where it is wrapped as a frame, or so is wanted. Silence also stands in
/// where there is no sound.
class WaveAnalyzer : public ElementAnalyzer<GenericContainer::SoundAnalyzer>,
                     public GenericContainer::NullEssenceProvider
{
public:
    static constexpr int ALL_CHANNELS = -1;

    /// \param source    a wave stream, from its start
    /// \param wrapKind  FRAME or CLIP
    /// \param mapping   BROADCAST_WAVE or AES3
    /// \param channel   the one channel to take, the first being 0
    WaveAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source, Labels::WrapKind wrapKind,
                 Labels::Mapping mapping = Labels::BROADCAST_WAVE, int channel = ALL_CHANNELS);
    ~WaveAnalyzer() override;

    /// Whether silence fills a last edit unit that isn't full; of a clip it
    /// doesn't unless told.
    void fillLastEditUnit(bool fill);

    /// Channels in the stream, once it is preloaded.
    unsigned int channelsInStream() const;

    /// The rate of the container, that of single samples at most.
    Templates::Rational<int> editRate() override;
    void editRate(Templates::Rational<int> const & containerRate) override;

    /// Chunks of any kind and size may stand ahead of the samples.
    UInt64 maximumToSkip() const override;
    void maximumToSkip(UInt64 bytes) override;

    /// Reads up to the samples.
    ///
    /// \return false when the stream is no wave
    /// \throws Exceptions::InvalidFormat for a wave of anything but PCM with 1
    ///         to 32 bits, or without the channel.
    bool preload() override;

    /// \throws Exceptions::InvalidFormat when the stream ends ahead of where
    ///         its header says.
    bool nextEditUnit(GenericContainer::EditUnit & unit) override;

    bool isCBE() const override;

    /// The size of the largest edit unit, whatever is set.
    void boundedEditUnitSize(int size) override;
    unsigned int boundedEditUnitSize() const override;

    /// That of a broadcast extension ahead of the sound (EBU Tech 3285), to
    /// the edit unit; drop frame at 29.97 and 59.94 edit units per second, so
    /// that it keeps to the time of day.
    Utils::TimeCode currentTimeCode() override;

    bool done() override;

    /// Silence.
    void fillNullEssence(GenericContainer::EditUnit & unit) override;

protected:
    /// Whole edit units, as the header of the stream tells them.
    Templates::Rational<int> durationOfStream() override;

    void describe(EssenceMetadata & metadata) override;
    void complete(EssenceMetadata & metadata) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}
}

#pragma once

#include "Analyzers/ElementAnalyzer.h"
#include "Analyzers/WaveSound.h"
#include "GenericContainer/SoundAnalyzer.h"

namespace Vantry { namespace Analyzers {

/// Sound of waves as the element of eight channels that D-10 has (SMPTE 331M,
/// 386M): 48000 Hz, 16 or 24 bits, channels in pairs.
///
/// Sounds take the channels in the order in which they are added. There is
/// silence where they end, so that pictures say how long the container is.
class EightChannelSoundAnalyzer : public ElementAnalyzer<GenericContainer::SoundAnalyzer>
{
public:
    static constexpr unsigned int MOST_CHANNELS = 8;

    /// \param container  label of the container of picture and sound
    explicit EightChannelSoundAnalyzer(Types::UniversalLabel const & container);
    ~EightChannelSoundAnalyzer() override;

    /// Adds a sound that is preloaded. Those of one channel come two by two.
    ///
    /// \throws Exceptions::InvalidFormat for sound that can't be taken; the
    ///         message says why.
    void add(Templates::SharedPtr<WaveSound> const & sound);

    /// Whether a sound of one channel waits for another.
    bool isPairOpen() const;

    /// \return false without sound, or for an open pair
    bool preload() override;

    /// \throws what the sounds throw.
    bool nextEditUnit(GenericContainer::EditUnit & unit) override;

    Types::UniversalLabel universalLabel() override;

    /// True: where elements differ by a sample, the container fills them up.
    bool isCBE() const override;

    /// Bytes of the largest element.
    unsigned int boundedEditUnitSize() const override;
    using ElementAnalyzer::boundedEditUnitSize;

    /// Never.
    bool done() override;

protected:
    void describe(EssenceMetadata & metadata) override;
    void complete(EssenceMetadata & metadata) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}}

#pragma once

#include <Vantry/Analyzers/EssenceMetadata.h>
#include <Vantry/Analyzers/SampleCadence.h>
#include <Vantry/GenericContainer/SoundAnalyzer.h>

#include <memory>
#include <optional>

/// Brings a sine tone: one channel of 16 bits at 48 kHz, wrapped frame by frame
/// (SMPTE 382M).
class ToneAnalyzer : public Vantry::GenericContainer::SoundAnalyzer
{
public:
    using Rate = Vantry::Templates::Rational<int>;

    /// \param hertz      of the tone
    /// \param editUnits  how many there are of it
    ToneAnalyzer(double hertz, Vantry::UInt64 editUnits);

    /// The container's: the tone can be cut anywhere.
    Rate editRate() override;
    void editRate(Rate const & containerRate) override;

    bool preload() override;
    bool setMetadata(Vantry::Metadata::PartitionMetadata & metadata,
                     Vantry::Metadata::Structural::SourcePackage * package, unsigned int trackNumber,
                     unsigned int trackID) override;
    bool nextEditUnit(Vantry::GenericContainer::EditUnit & unit) override;
    bool done() override;
    bool finalize() override;

    Vantry::Types::UniversalLabel universalLabel() override;
    unsigned char itemTypeIdentifier() const override;
    unsigned char essenceElementType() const override;

    bool isCBE() const override;
    unsigned int boundedEditUnitSize() const override;
    bool containsTemporalDependencies() const override { return false; }
    unsigned int requiredKAGSize() const override { return 1; }
    Vantry::Utils::TimeCode currentTimeCode() override { return {}; }

    // There is no input in which to skip, and the size follows from the rate.
    Vantry::UInt64 maximumToSkip() const override { return 0; }
    void maximumToSkip(Vantry::UInt64) override {}
    void boundedEditUnitSize(int) override {}

private:
    void fill(unsigned char * samples, Vantry::UInt64 count);

    double const radiansPerSample_;
    Vantry::UInt64 const editUnits_;
    Vantry::UInt64 editUnitsMade_;
    Vantry::UInt64 samplesMade_;
    Rate rate_;
    std::optional<Vantry::Analyzers::SampleCadence> cadence_;
    std::unique_ptr<Vantry::Analyzers::EssenceMetadata> metadata_;
};

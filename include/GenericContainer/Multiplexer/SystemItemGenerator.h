#pragma once

#include "GenericContainer/SystemAnalyzer.h"
#include "Platform/Export.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace GenericContainer {

class TimeCodeProvider;

namespace Multiplexer {

/// Makes the system item of a frame-wrapped container (SMPTE 385M): for each
/// content package a system metadata pack with the label of the container and
/// a user time code, and an empty package metadata set.
///
/// It says that there are picture and sound, and never ends.
class VANTRY_EXPORT SystemItemGenerator : public SystemAnalyzer
{
public:
    /// Counts the time code up.
    ///
    /// \param rate              content packages per second
    /// \param start             time code of the first; all get its user bits
    ///                          where it is a Utils::TimeCodeExtended
    /// \param essenceContainer  label of the container
    SystemItemGenerator(Templates::Rational<int> const & rate, Utils::TimeCode const & start,
                        Types::UniversalLabel const & essenceContainer);

    /// Takes the time code from a provider, with user bits where it is a
    /// TimeCodeExtendedProvider.
    SystemItemGenerator(Templates::Rational<int> const & rate, Templates::SharedPtr<TimeCodeProvider> provider,
                        Types::UniversalLabel const & essenceContainer);

    SystemItemGenerator(SystemItemGenerator const &) = delete;
    SystemItemGenerator & operator=(SystemItemGenerator const &) = delete;
    ~SystemItemGenerator() override;

    Templates::Rational<int> editRate() override;

    /// The time code that is counted goes on at this rate, rounded up.
    ///
    /// \throws Exceptions::InvalidValue when there is no such time code.
    void editRate(Templates::Rational<int> const & containerRate) override;

    UInt64 maximumToSkip() const override;
    void maximumToSkip(UInt64 bytes) override;

    /// Takes the first time code.
    bool preload() override;

    /// Does nothing: system items have neither descriptor nor track.
    bool setMetadata(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                     unsigned int trackNumber, unsigned int trackID) override;

    bool nextEditUnit(EditUnit & unit) override;
    bool finalize() override;
    Types::UniversalLabel universalLabel() override;
    bool isCBE() const override;
    void boundedEditUnitSize(int size) override;

    /// The size that was set, or that of pack and set.
    unsigned int boundedEditUnitSize() const override;

    bool containsTemporalDependencies() const override;
    Utils::TimeCode currentTimeCode() override;
    unsigned char itemTypeIdentifier() const override;
    unsigned char essenceElementType() const override;
    unsigned int requiredKAGSize() const override;
    bool done() override;
    void setPreChargeDuration(Templates::Rational<int> const & seconds) override;
    Templates::Rational<int> getPreChargeDuration() override;

private:
    class Impl;
    Impl * impl_;
};

}
}}

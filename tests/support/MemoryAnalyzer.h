#pragma once

#include "GenericContainer/CompoundAnalyzer.h"
#include "GenericContainer/DataAnalyzer.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/MetadataBuilder.h"
#include "GenericContainer/NullEssenceProvider.h"
#include "GenericContainer/PictureAnalyzer.h"
#include "GenericContainer/SoundAnalyzer.h"
#include "GenericContainer/SystemAnalyzer.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/CDCIEssenceDescriptor.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/WAVEAudioEssenceDescriptor.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "support/Slices.h"

#include <memory>
#include <type_traits>

namespace Vantry { namespace Tests {

/// What an analyzer of essence in memory gives, and says of it.
struct MemoryEssence
{
    using Rate = Templates::Rational<int>;

    struct Unit
    {
        Bytes bytes;
        unsigned char flags = 0x80;
        signed char temporalOffset = 0;
        Utils::TimeCode timeCode = {};
        Rate duration = {}; ///< 0: what the rate says
    };

    /// Edit units of these sizes; their bytes are their numbers from 1 on.
    static MemoryEssence ofSizes(std::vector<std::size_t> const & sizes)
    {
        MemoryEssence essence;
        for (std::size_t size : sizes)
            essence.units.push_back({repeated(size, static_cast<unsigned char>(essence.units.size() + 1))});
        return essence;
    }

    /// As many edit units of one size, which the analyzer calls constant.
    static MemoryEssence constant(std::size_t count, std::size_t size)
    {
        MemoryEssence essence = ofSizes(std::vector<std::size_t>(count, size));
        essence.isCBE = true;
        essence.bound = static_cast<unsigned int>(size);
        return essence;
    }

    std::vector<Unit> units = {};
    bool isCBE = false;
    unsigned int bound = 0;
    Rate unitsPerPackage = 1; ///< the analyzer's rate by that of the container
    bool isTemporal = false;
    Rate preCharge = {};
    unsigned int kagSize = 1;
    bool isValid = true;
    unsigned char elementType = 1;
    char const * label = "06 0E 2B 34 04 01 01 02 0D 01 03 01 02 04 60 01"; ///< of frames of MPEG
};

/// An analyzer of essence in memory, of the kind `Kind`. It keeps its blocks
/// and counts its calls.
template <class Kind>
class MemoryAnalyzer : public Kind
{
public:
    using Rate = Templates::Rational<int>;

    explicit MemoryAnalyzer(MemoryEssence essence) : essence_(std::move(essence)) {}

    Rate editRate() override { return rate_; }
    void editRate(Rate const & containerRate) override { rate_ = containerRate * essence_.unitsPerPackage; }
    UInt64 maximumToSkip() const override { return 0; }
    void maximumToSkip(UInt64) override {}
    bool preload() override { return essence_.isValid; }

    bool setMetadata(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                     unsigned int number, unsigned int id) override
    {
        namespace Structural = Metadata::Structural;
        using Descriptor =
            std::conditional_t<isPicture(), Structural::CDCIEssenceDescriptor, Structural::WAVEAudioEssenceDescriptor>;
        auto & descriptor = dynamic_cast<Descriptor &>(*metadata.createMetadataSet(
            isPicture() ? Structural::StructuralMetadataKeys::cdciEssenceDescriptor()
                        : Structural::StructuralMetadataKeys::waveAudioEssenceDescriptor()));
        Types::UInt32 const linked(id);
        Types::Rational const sampleRate(rate_.numerator(), rate_.denominator());
        Types::UniversalLabel const container = universalLabel();
        descriptor.linkedTrack(&linked);
        descriptor.sampleRate(&sampleRate);
        descriptor.essenceContainer(&container);
        builder_ = std::make_unique<Builder>(metadata, package, number, id, rate_, essence_.preCharge);
        builder_->setDescriptorToPackage(&descriptor);
        return builder_->createTrack(isPicture() ? Structural::DataDefinitionULs::picture()
                                                 : Structural::DataDefinitionULs::audio());
    }

    bool nextEditUnit(GenericContainer::EditUnit & unit) override
    {
        if (next_ == essence_.units.size())
            return false;
        MemoryEssence::Unit const & given = essence_.units[next_++];
        unit.data.push_back(blocks.slice(given.bytes));
        unit.duration = given.duration != 0 ? given.duration : Rate(1) / rate_;
        unit.flags = given.flags;
        unit.temporalOffset = given.temporalOffset;
        unit.timeCode = given.timeCode;
        unit.valid = true;
        return true;
    }

    bool finalize() override
    {
        ++finalized;
        if (builder_ != nullptr)
        {
            builder_->position(static_cast<Int64>(next_) - 1);
            builder_->finish();
        }
        return true;
    }

    Types::UniversalLabel universalLabel() override { return Types::UniversalLabel(hex(essence_.label).data()); }

    bool isCBE() const override { return essence_.isCBE; }
    void boundedEditUnitSize(int size) override { essence_.bound = static_cast<unsigned int>(size); }
    unsigned int boundedEditUnitSize() const override { return essence_.bound; }
    bool containsTemporalDependencies() const override { return essence_.isTemporal; }

    Utils::TimeCode currentTimeCode() override
    {
        return next_ < essence_.units.size() ? essence_.units[next_].timeCode : Utils::TimeCode();
    }

    unsigned char itemTypeIdentifier() const override { return isPicture() ? 0x15 : isSound() ? 0x16 : 0x17; }
    unsigned char essenceElementType() const override { return essence_.elementType; }
    unsigned int requiredKAGSize() const override { return essence_.kagSize; }
    bool done() override { return next_ == essence_.units.size(); }
    Rate getPreChargeDuration() override { return essence_.preCharge; }
    void setPreChargeDuration(Rate const & seconds) override { essence_.preCharge = seconds; }

    int finalized = 0;
    CountingBlocks blocks;

private:
    class Builder : public GenericContainer::MetadataBuilder
    {
    public:
        Builder(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                unsigned int number, unsigned int id, Rate const & rate, Rate const & origin) :
            MetadataBuilder(metadata, package,
                            dynamic_cast<Metadata::Structural::MultipleDescriptor *>(package->descriptor()), number, id,
                            rate, origin)
        {
        }

        bool createTrack(Types::UniversalLabel const & dataDefinition)
        {
            return createEssenceTrack(dataDefinition, trackNumber()) != nullptr;
        }
    };

    static constexpr bool isPicture() { return std::is_base_of<GenericContainer::PictureAnalyzer, Kind>::value; }
    static constexpr bool isSound() { return std::is_base_of<GenericContainer::SoundAnalyzer, Kind>::value; }

    MemoryEssence essence_;
    Rate rate_ = 25;
    std::size_t next_ = 0;
    std::unique_ptr<Builder> builder_;
};

using MemoryPictures = MemoryAnalyzer<GenericContainer::PictureAnalyzer>;
using MemorySound = MemoryAnalyzer<GenericContainer::SoundAnalyzer>;

/// Sound that has a byte EEh where it has no sound and is told for how long.
class MemorySoundOrSilence : public MemorySound, public GenericContainer::NullEssenceProvider
{
public:
    using MemorySound::MemorySound;

    void fillNullEssence(GenericContainer::EditUnit & unit) override
    {
        unit.data.push_back(blocks.slice(repeated(unit.duration > 0 ? 1 : 0, 0xEE)));
    }
};

}}

#pragma once

#include "Analyzers/EssenceMetadata.h"
#include "GenericContainer/EssenceAnalyzer.h"
#include "GenericContainer/RP224UniversalLabels.h"
#include "Types/UniversalLabel.h"

#include <memory>
#include <optional>
#include <utility>

namespace Vantry { namespace Analyzers {

/// How keys and labels tell a kind of essence that is wrapped by the frame;
/// where it is wrapped by the clip, both the element type and one byte of the
/// label are greater by one.
struct ElementCoding
{
    unsigned char itemType;           ///< byte 12 of element keys (SMPTE 379M, 7.1)
    unsigned char elementType;        ///< byte 14 of element keys
    unsigned char containerLabel[16]; ///< of the essence container (SMPTE RP 224)
    unsigned int wrappingByte;        ///< place in that label, from 0 on
};

/// What analyzers of one stream have in common: the way of wrapping, settings
/// that are kept as they are set, and a descriptor that is made once and
/// completed at the end. An analyzer has its own answer where its essence is
/// another kind than this: of any size, in the order it is shown in, without
/// time code, and all of use.
///
/// `Kind` is PictureAnalyzer, SoundAnalyzer, DataAnalyzer or CompoundAnalyzer.
template <class Kind>
class ElementAnalyzer : public Kind
{
public:
    using Labels = GenericContainer::RP224UniversalLabels;

    /// The rate of the container.
    Templates::Rational<int> editRate() override { return editRate_; }
    void editRate(Templates::Rational<int> const & containerRate) override { editRate_ = containerRate; }

    /// Nothing is passed over: 0.
    UInt64 maximumToSkip() const override { return 0; }
    void maximumToSkip(UInt64) override {}

    /// \return false when the input isn't of the format, or it was done before
    bool setMetadata(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                     unsigned int trackNumber, unsigned int trackID) override;

    /// \return false without metadata
    bool finalize() override;

    Types::UniversalLabel universalLabel() override;
    bool isCBE() const override { return false; }

    /// A bound that the application knows; 0 at first.
    void boundedEditUnitSize(int size) override { bound_ = static_cast<unsigned int>(size); }
    unsigned int boundedEditUnitSize() const override { return bound_; }

    bool containsTemporalDependencies() const override { return false; }
    Utils::TimeCode currentTimeCode() override { return Utils::TimeCode(); }
    unsigned char itemTypeIdentifier() const override { return coding_.itemType; }

    unsigned char essenceElementType() const override
    {
        return static_cast<unsigned char>(coding_.elementType + (isClip() ? 1 : 0));
    }

    unsigned int requiredKAGSize() const override { return 1; }

    /// That of the stream, unless another was set. A container that goes on
    /// when the stream has ended is to hear of none: -1.
    void setDuration(Templates::Rational<int> const & seconds) override { duration_ = seconds; }
    Templates::Rational<int> getDuration() override { return duration_ ? *duration_ : durationOfStream(); }

protected:
    ElementAnalyzer(ElementCoding const & coding, Labels::WrapKind wrapKind) : coding_(coding), wrapKind_(wrapKind) {}

    bool isClip() const { return wrapKind_ == Labels::CLIP; }

    /// In seconds; -1 while it isn't known.
    virtual Templates::Rational<int> durationOfStream() { return -1; }

    /// Makes the descriptor, with EssenceMetadata::describe; the input is
    /// preloaded.
    virtual void describe(EssenceMetadata & metadata) = 0;

    /// Sets the durations, with EssenceMetadata::finish.
    virtual void complete(EssenceMetadata & metadata) = 0;

private:
    ElementCoding const coding_;
    Labels::WrapKind const wrapKind_;
    Templates::Rational<int> editRate_;
    std::optional<Templates::Rational<int>> duration_;
    unsigned int bound_ = 0;
    std::unique_ptr<EssenceMetadata> metadata_;
};

template <class Kind>
bool ElementAnalyzer<Kind>::setMetadata(Metadata::PartitionMetadata & metadata,
                                        Metadata::Structural::SourcePackage * package, unsigned int trackNumber,
                                        unsigned int trackID)
{
    if (metadata_ || !this->preload())
        return false;
    auto made = std::make_unique<EssenceMetadata>(metadata, package, trackNumber, trackID, this->editRate());
    describe(*made);
    metadata_ = std::move(made);
    return true;
}

template <class Kind>
bool ElementAnalyzer<Kind>::finalize()
{
    if (!metadata_)
        return false;
    complete(*metadata_);
    return true;
}

template <class Kind>
Types::UniversalLabel ElementAnalyzer<Kind>::universalLabel()
{
    ElementCoding coding = coding_;
    if (isClip())
        ++coding.containerLabel[coding.wrappingByte];
    return Types::UniversalLabel(coding.containerLabel);
}

}}

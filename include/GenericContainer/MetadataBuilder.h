#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
}
namespace Types {
class UniversalLabel;
}

namespace GenericContainer {

/// Makes the tracks and places the descriptor of an analyzer's essence in its
/// package, and sets the durations at the end. To be derived from, or used as
/// it is, by EssenceAnalyzer::setMetadata.
///
/// Metadata, package and descriptor are lent and outlive the builder.
class VANTRY_EXPORT MetadataBuilder
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param package             gets tracks and descriptor; null when there
    ///                            is none
    /// \param multipleDescriptor  gets the descriptor in place of the package;
    ///                            null when the essence is alone
    /// \param trackNumber         bytes 12 to 15 of the key of the elements
    /// \param trackId             number of the first track; those that follow
    ///                            count up
    /// \param editRate            of the tracks
    /// \param origin              of the tracks, in seconds
    /// \throws Exceptions::NotFound when there is no Preface.
    MetadataBuilder(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                    Metadata::Structural::MultipleDescriptor * multipleDescriptor, unsigned int trackNumber,
                    unsigned int trackId, Templates::Rational<int> const & editRate,
                    Templates::Rational<int> const & origin);
    MetadataBuilder(MetadataBuilder const &) = delete;
    MetadataBuilder & operator=(MetadataBuilder const &) = delete;
    virtual ~MetadataBuilder();

    /// Sets the durations of all tracks that were made, once.
    virtual void finish();

    Metadata::PartitionMetadata & partitionMetadata() const { return metadata_; }
    Metadata::Structural::SourcePackage * sourcePackage() const { return package_; }
    Metadata::Structural::Preface & preface() const { return preface_; }
    unsigned int trackId() const { return trackId_; }
    unsigned int trackNumber() const { return trackNumber_; }

    /// The last edit unit that there is, pre-charge counted, the first being
    /// 0; -1 when there is none yet.
    Int64 position() const { return position_; }
    void position(Int64 lastEditUnit) { position_ = lastEditUnit; }

    /// Makes the descriptor that of the package, or one of several in it.
    void setDescriptorToPackage(Metadata::Structural::FileDescriptor * descriptor);

protected:
    /// Makes a track of unknown length, with a clip in it.
    ///
    /// \return the track; null without a package, and where the schema
    ///         doesn't let it be linked
    /// \throws Exceptions::NotFound when the dictionary lacks a set or an
    ///         attribute.
    Metadata::Structural::TimelineTrack * createEssenceTrack(Types::UniversalLabel const & dataDefinition,
                                                             unsigned int trackNumber);

    /// Sets the lengths of a track of picture, sound or data to what
    /// `position` says.
    void updateEssenceTrack(Metadata::Structural::TimelineTrack * track);

    /// Does so for all that were made.
    void updateEssenceTracks();

    /// The source clip at the end of a sequence, or null.
    Metadata::Structural::SourceClip * getLastSourceClip(Metadata::Structural::Sequence * sequence) const;

    /// The whole edit units in a time; -1 for -1/1, which isn't known.
    ///
    /// \throws Exceptions::InvalidValue for more than 64 bits hold.
    Int64 convertSecondsToEditUnit(Templates::Rational<int> const & seconds,
                                   Templates::Rational<int> const & editRate) const;

private:
    Metadata::PartitionMetadata & metadata_;
    Metadata::Structural::Preface & preface_;
    Metadata::Structural::SourcePackage * package_;
    Metadata::Structural::MultipleDescriptor * multipleDescriptor_;
    unsigned int trackNumber_;
    unsigned int trackId_;
    Templates::Rational<int> editRate_;
    Templates::Rational<int> origin_;
    Templates::vector<Metadata::Structural::TimelineTrack *> tracks_;
    Int64 position_;
    bool finished_;
};

}
}

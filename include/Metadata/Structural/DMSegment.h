#pragma once

#include "Metadata/Structural/StructuralComponent.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Puts a framework of descriptive metadata on a track (SMPTE 377M).
class VANTRY_EXPORT DMSegment : public StructuralComponent
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    DMSegment(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// The framework of descriptive metadata: a set of a descriptive metadata
    /// scheme.
    MetadataSet * dmFramework() const;
    void dmFramework(MetadataSet * target);

    /// Where the event begins, in edit units of its event track.
    Types::Position const * eventStartPosition() const;
    void eventStartPosition(Types::Position const * value);

    /// Remark on the event for people.
    Types::UTF16String const * eventComment() const;
    void eventComment(Types::UTF16String const * value);

    /// Numbers of the tracks in the same package that the segment describes;
    /// without any, all essence tracks.
    Types::UInt32 const * tracks(unsigned int index) const;
    unsigned int tracksCount() const;
    void appendTrack(Types::UInt32 const & value);
    void removeTracks(unsigned int index);

    /// Kind of the data: picture, sound, data, time code or descriptive
    /// metadata; see DataDefinitionULs.
    Types::UniversalLabel const * dataDefinition() const override;
    void dataDefinition(Types::UniversalLabel const * value) override;

    /// Length in edit units of the track; -1 when it isn't known.
    Types::Length const * duration() const override;
    void duration(Types::Length const * value) override;

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}

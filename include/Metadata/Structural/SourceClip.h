#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/StructuralComponent.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A stretch of another package's track (SMPTE 377M).
class VANTRY_EXPORT SourceClip : public StructuralComponent
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    SourceClip(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Kind of the data: picture, sound, data, time code or descriptive
    /// metadata; see DataDefinitionULs.
    Types::UniversalLabel const * dataDefinition() const override;
    void dataDefinition(Types::UniversalLabel const * value) override;

    /// Length in edit units of the track; -1 when it isn't known.
    Types::Length const * duration() const override;
    void duration(Types::Length const * value) override;

    /// Where the clip begins in the track it refers to, in edit units of its
    /// own track.
    Types::Position const * startPosition() const;
    void startPosition(Types::Position const * value);

    /// Identifier of the package that the clip refers to; all zero where the
    /// chain of sources ends.
    Types::UMID32 const * sourcePackageUID() const;
    void sourcePackageUID(Types::UMID32 const * value);

    /// Number of the track in the package that the clip refers to; 0 where the
    /// chain of sources ends.
    Types::UInt32 const * sourceTrack() const;
    void sourceTrackID(Types::UInt32 const * value);

    /// Stores the number of a track of the other package; null clears, and so
    /// does a track without number.
    void sourceTrack(Track const * track);

    /// The package with `sourcePackageUID`, or null.
    GenericPackage * sourcePackage() const;

    /// Stores the `packageUID` of the package; null clears, and so does a
    /// package without one.
    void sourcePackage(GenericPackage const * package);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;

protected:
    /// For a class derived from this one, with a key of its own.
    SourceClip(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);
};

}}}

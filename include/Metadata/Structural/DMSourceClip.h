#pragma once

#include "Metadata/Structural/SourceClip.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A stretch of descriptive metadata in another package (SMPTE 377M).
class VANTRY_EXPORT DMSourceClip : public SourceClip
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    DMSourceClip(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Numbers of the tracks in the same package that the clip describes;
    /// without any, all essence tracks.
    Types::UInt32 const * tracks(unsigned int index) const;
    unsigned int tracksCount() const;
    void appendTracks(Types::UInt32 const & value);
    void removeTracks(unsigned int index);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}

#pragma once

#include "Metadata/Structural/Track.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A track without time: what it holds goes for the whole package (SMPTE 377M).
class VANTRY_EXPORT StaticTrack : public Track
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    StaticTrack(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}

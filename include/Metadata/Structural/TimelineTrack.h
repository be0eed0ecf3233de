#pragma once

#include "Metadata/Structural/Track.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A track whose parts follow each other without gap or overlap (SMPTE 377M).
class VANTRY_EXPORT TimelineTrack : public Track
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    TimelineTrack(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Edit units per second; positions and durations on the track are counted
    /// in them.
    virtual void editRate(Types::Rational const * value);
    virtual Types::Rational const * editRate() const;

    /// Where time 0 of the track lies, in edit units from the start of its
    /// essence; what comes before is pre-charge.
    virtual void origin(Types::Position const * value);
    virtual Types::Position const * origin() const;

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}

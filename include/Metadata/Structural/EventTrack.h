#pragma once

#include "Metadata/Structural/Track.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A track of events that may overlap and leave gaps (SMPTE 377M).
class VANTRY_EXPORT EventTrack : public Track
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    EventTrack(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Edit units per second; the start and duration of the track's events are
    /// counted in them.
    Types::Rational const * eventEditRate() const;
    void eventEditRate(Types::Rational const * value);

    /// Where time 0 of the track lies, in edit units from the start of its
    /// events.
    Types::Position const * eventOrigin() const;
    void eventOrigin(Types::Position const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}

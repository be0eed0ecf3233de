#include "OPBuilders/TimelineSets.h"

#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UTF16String.h"

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;

Sequence & createSequence(ProxyBase const & base, Types::UniversalLabel const & dataDefinition)
{
    Sequence & sequence = base.create<Sequence>(StructuralMetadataKeys::sequence());
    sequence.dataDefinition(&dataDefinition);
    return sequence;
}

TimelineTrack & createTimelineTrack(ProxyBase const & base, unsigned int trackID, Rate const & rate, Int64 origin,
                                    unsigned short const * name)
{
    Types::UInt32 const noEssence(0);
    Types::UInt32 const identifier(trackID);
    Types::Rational const editRate(rate.numerator(), rate.denominator());
    Types::Position const position(origin);
    Types::UTF16String const trackName(name);

    TimelineTrack & track = base.create<TimelineTrack>(StructuralMetadataKeys::timelineTrack());
    track.trackNumber(&noEssence);
    track.trackID(&identifier);
    track.editRate(&editRate);
    track.origin(&position);
    track.trackName(&trackName);
    return track;
}

}}

#include "Metadata/Structural/TimelineTrack.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Position.h"
#include "Types/Rational.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(TimelineTrack, Track, timelineTrack)

VANTRY_VALUE(TimelineTrack, editRate, editRate, Rational)
VANTRY_VALUE(TimelineTrack, origin, origin, Position)

}}}

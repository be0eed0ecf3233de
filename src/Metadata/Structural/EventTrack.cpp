#include "Metadata/Structural/EventTrack.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Position.h"
#include "Types/Rational.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(EventTrack, Track, eventTrack)

VANTRY_VALUE(EventTrack, eventEditRate, eventEditRate, Rational)
VANTRY_VALUE(EventTrack, eventOrigin, eventOrigin, Position)

}}}

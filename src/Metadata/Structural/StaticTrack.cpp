#include "Metadata/Structural/StaticTrack.h"

#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(StaticTrack, Track, staticTrack)

}}}

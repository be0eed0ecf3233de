#include "Metadata/Structural/DMSourceClip.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UInt32.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(DMSourceClip, SourceClip, dmSourceClip)

VANTRY_VALUE_BATCH(DMSourceClip, tracks, Tracks, tracks, dmSourceClipTrackIDs, UInt32)

}}}

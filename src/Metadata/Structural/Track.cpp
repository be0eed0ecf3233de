#include "Metadata/Structural/Track.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UInt32.h"
#include "Types/UTF16String.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_BASE_SET(Track, TrackableMetadataSet)

Track::~Track() = default;

VANTRY_REFERENCE(Track, sequence, sequence, Sequence)
VANTRY_VALUE(Track, trackID, trackID, UInt32)
VANTRY_VALUE(Track, trackNumber, trackNumber, UInt32)
VANTRY_VALUE(Track, trackName, trackName, UTF16String)

}}}

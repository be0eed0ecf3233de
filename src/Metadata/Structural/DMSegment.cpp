#include "Metadata/Structural/DMSegment.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/UInt32.h"
#include "Types/UTF16String.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(DMSegment, StructuralComponent, dmSegment)

VANTRY_REFERENCE(DMSegment, dmFramework, dmFramework, MetadataSet)
VANTRY_VALUE(DMSegment, eventStartPosition, eventStartPosition, Position)
VANTRY_VALUE(DMSegment, eventComment, eventComment, UTF16String)
VANTRY_VALUE_ITEMS(DMSegment, tracks, Tracks, tracks, dmSegmentTrackIDs, UInt32)
VANTRY_VALUE(DMSegment, dataDefinition, dataDefinition, UniversalLabel)
VANTRY_VALUE(DMSegment, duration, duration, Length)

void DMSegment::appendTrack(Types::UInt32 const & value)
{
    appendValue(*this, Labels::dmSegmentTrackIDs(), value);
}

}}}

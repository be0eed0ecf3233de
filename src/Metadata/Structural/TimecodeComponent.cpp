#include "Metadata/Structural/TimecodeComponent.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Boolean.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/UInt16.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(TimecodeComponent, StructuralComponent, timecodeComponent)

VANTRY_VALUE(TimecodeComponent, dataDefinition, dataDefinition, UniversalLabel)
VANTRY_VALUE(TimecodeComponent, duration, duration, Length)
VANTRY_VALUE(TimecodeComponent, roundedTimecodeBase, roundedTimecodeBase, UInt16)
VANTRY_VALUE(TimecodeComponent, startTimecode, startTimecode, Position)
VANTRY_VALUE(TimecodeComponent, dropFrame, dropFrame, Boolean)

}}}

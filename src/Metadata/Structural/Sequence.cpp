#include "Metadata/Structural/Sequence.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Metadata/Structural/StructuralComponent.h"
#include "Types/Length.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(Sequence, TrackableMetadataSet, sequence)

VANTRY_REFERENCE_ARRAY(Sequence, structuralComponent, StructuralComponent, structuralComponents, structuralComponents,
                       StructuralComponent)
VANTRY_VALUE(Sequence, dataDefinition, dataDefinition, UniversalLabel)
VANTRY_VALUE(Sequence, duration, duration, Length)

}}}

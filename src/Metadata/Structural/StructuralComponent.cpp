#include "Metadata/Structural/StructuralComponent.h"

#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_BASE_SET(StructuralComponent, TrackableMetadataSet)

StructuralComponent::~StructuralComponent() = default;

}}}

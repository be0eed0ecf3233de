#include "Metadata/Structural/SubDescriptor.h"

#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_BASE_SET(SubDescriptor, TrackableMetadataSet)

SubDescriptor::~SubDescriptor() = default;

}}}

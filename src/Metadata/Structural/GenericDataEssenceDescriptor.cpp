#include "Metadata/Structural/GenericDataEssenceDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(GenericDataEssenceDescriptor, FileDescriptor, genericDataEssenceDescriptor)
VANTRY_BASE_SET(GenericDataEssenceDescriptor, FileDescriptor)

VANTRY_VALUE(GenericDataEssenceDescriptor, dataEssenceCoding, dataEssenceCoding, UniversalLabel)

}}}

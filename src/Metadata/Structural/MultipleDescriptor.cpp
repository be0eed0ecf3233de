#include "Metadata/Structural/MultipleDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(MultipleDescriptor, FileDescriptor, multipleDescriptor)

VANTRY_REFERENCE_ARRAY(MultipleDescriptor, subDescriptor, SubDescriptor, subDescriptors, subDescriptorUIDs,
                       FileDescriptor)

}}}

#include "Metadata/Structural/ANCPacketsDescriptor.h"

#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(ANCPacketsDescriptor, GenericDataEssenceDescriptor, ancPacketsDescriptor)

}}}

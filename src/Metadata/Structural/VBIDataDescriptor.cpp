#include "Metadata/Structural/VBIDataDescriptor.h"

#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(VBIDataDescriptor, GenericDataEssenceDescriptor, vbiDataDescriptor)

}}}

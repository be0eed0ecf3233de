#include "Metadata/Structural/PhysicalDescriptor.h"

#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_BASE_SET(PhysicalDescriptor, GenericDescriptor)

PhysicalDescriptor::~PhysicalDescriptor() = default;

}}}

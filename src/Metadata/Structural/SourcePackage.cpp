#include "Metadata/Structural/SourcePackage.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/GenericDescriptor.h"
#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(SourcePackage, GenericPackage, sourcePackage)

VANTRY_REFERENCE(SourcePackage, descriptor, descriptor, GenericDescriptor)

}}}

#include "Metadata/Structural/MaterialPackage.h"

#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(MaterialPackage, GenericPackage, materialPackage)

}}}

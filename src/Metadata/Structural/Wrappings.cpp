#include "Metadata/Structural/Wrappings.h"

#include "Metadata/ConstantTable.h"
#include "Metadata/Structural/WrappingList.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace Wrappings {

VANTRY_CONSTANT_TABLE(Types::UniversalLabel, VANTRY_WRAPPINGS)

}}}}

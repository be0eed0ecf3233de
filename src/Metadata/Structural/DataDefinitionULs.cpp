#include "Metadata/Structural/DataDefinitionULs.h"

#include "Metadata/ConstantTable.h"
#include "Metadata/Structural/DataDefinitionULList.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace DataDefinitionULs {

VANTRY_CONSTANT_TABLE(Types::UniversalLabel, VANTRY_DATA_DEFINITION_ULS)

static_assert(equalPairs(BYTES) == 1, "timecode309M is timecode12MActive, all others differ");

}}}}

#include "Metadata/Structural/IndexTablesULs.h"

#include "Metadata/ConstantTable.h"
#include "Metadata/Structural/IndexTableULList.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace IndexTablesULs {

VANTRY_CONSTANT_TABLE(Types::UniversalLabel, VANTRY_INDEX_TABLE_ULS)

static_assert(equalPairs(BYTES) == 0, "all differ");

}}}}

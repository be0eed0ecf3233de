#include "Metadata/Structural/StructuralMetadataULs.h"

#include "Metadata/ConstantTable.h"
#include "Metadata/Structural/StructuralMetadataULList.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace StructuralMetadataULs {

VANTRY_CONSTANT_TABLE(Types::UniversalLabel, VANTRY_STRUCTURAL_METADATA_ULS)

static_assert(equalPairs(BYTES) == 0, "all differ");

}}}}

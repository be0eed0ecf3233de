#include "Metadata/Structural/StructuralMetadataKeys.h"

#include "KLV/Key.h"
#include "Metadata/ConstantTable.h"
#include "Metadata/Structural/StructuralMetadataKeyList.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace StructuralMetadataKeys {

VANTRY_CONSTANT_TABLE(KLV::Key, VANTRY_STRUCTURAL_METADATA_KEYS)

static_assert(equalPairs(BYTES) == 0, "all differ");

}}}}

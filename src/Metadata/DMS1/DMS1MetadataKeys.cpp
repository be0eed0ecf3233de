#include "Metadata/DMS1/DMS1MetadataKeys.h"

#include "KLV/Key.h"
#include "Metadata/ConstantTable.h"
#include "Metadata/DMS1/DMS1MetadataKeyList.h"

namespace Vantry { namespace Metadata { namespace DMS1 { namespace DMS1MetadataKeys {

VANTRY_CONSTANT_TABLE(KLV::Key, VANTRY_DMS1_METADATA_KEYS)

static_assert(equalPairs(BYTES) == 0, "all differ");

}}}}

#include "Metadata/MetadataKeys.h"

#include "Metadata/ConstantTable.h"

namespace Vantry { namespace Metadata { namespace MetadataKeys {

#define VANTRY_METADATA_KEYS(ROW) ROW(preface, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 2F 00")

VANTRY_CONSTANT_TABLE(KLV::Key, VANTRY_METADATA_KEYS)

}}}

#include "Metadata/MetadataULs.h"

#include "Metadata/ConstantTable.h"

namespace Vantry { namespace Metadata { namespace MetadataULs {

#define VANTRY_METADATA_ULS(ROW)                                              \
    ROW(null, "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00")              \
    ROW(instanceUID, "06 0E 2B 34 01 01 01 01 01 01 15 02 00 00 00 00")       \
    ROW(thisGenerationUID, "06 0E 2B 34 01 01 01 02 05 20 07 01 01 00 00 00") \
    ROW(trackID, "06 0E 2B 34 01 01 01 02 01 07 01 01 00 00 00 00")           \
    ROW(packageUID, "06 0E 2B 34 01 01 01 01 01 01 15 10 00 00 00 00")        \
    ROW(linkedPackageUID, "06 0E 2B 34 01 01 01 02 06 01 01 06 01 00 00 00")  \
    ROW(packages, "06 0E 2B 34 01 01 01 02 06 01 01 04 05 01 00 00")

VANTRY_CONSTANT_TABLE(Types::UniversalLabel, VANTRY_METADATA_ULS)

}}}

#include "Metadata/DMS1/DMS1MetadataULs.h"

#include "Metadata/ConstantTable.h"
#include "Metadata/DMS1/DMS1MetadataULList.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace DMS1 { namespace DMS1MetadataULs {

VANTRY_CONSTANT_TABLE(Types::UniversalLabel, VANTRY_DMS1_METADATA_ULS)

static_assert(equalPairs(BYTES) == 1, "geographicalCoordinate is astronomicalBodyName, all others differ");

}}}}

#include "Metadata/Structural/Identification.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/ProductVersion.h"
#include "Types/Timestamp.h"
#include "Types/UTF16String.h"
#include "Types/UUID.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(Identification, MetadataSet, identification)

VANTRY_VALUE(Identification, thisGenerationUID, thisGenerationUID, UUID)
VANTRY_VALUE(Identification, companyName, companyName, UTF16String)
VANTRY_VALUE(Identification, productName, productName, UTF16String)
VANTRY_VALUE(Identification, productVersion, productVersion, ProductVersion)
VANTRY_VALUE(Identification, versionString, versionString, UTF16String)
VANTRY_VALUE(Identification, productUID, productUID, UUID)
VANTRY_VALUE(Identification, modifiedDate, modifiedDate, Timestamp)
VANTRY_VALUE(Identification, toolkitVersion, toolkitVersion, ProductVersion)
VANTRY_VALUE(Identification, platform, platform, UTF16String)

}}}

#include "Metadata/Structural/NetworkLocator.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UTF16String.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(NetworkLocator, Locator, networkLocator)

VANTRY_VALUE(NetworkLocator, urlString, urlString, UTF16String)

}}}

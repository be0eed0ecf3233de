#include "Metadata/Structural/TextLocator.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UTF16String.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(TextLocator, Locator, textLocator)

VANTRY_VALUE(TextLocator, locatorName, locatorName, UTF16String)

}}}

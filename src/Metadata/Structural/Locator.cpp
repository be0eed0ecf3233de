#include "Metadata/Structural/Locator.h"

#include "Metadata/Structural/SetClass.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_BASE_SET(Locator, TrackableMetadataSet)

Locator::~Locator() = default;

}}}

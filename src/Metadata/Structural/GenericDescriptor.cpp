#include "Metadata/Structural/GenericDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/Locator.h"
#include "Metadata/Structural/SetClass.h"
#include "Metadata/Structural/SubDescriptor.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_BASE_SET(GenericDescriptor, TrackableMetadataSet)

GenericDescriptor::~GenericDescriptor() = default;

VANTRY_REFERENCE_ARRAY(GenericDescriptor, locator, Locator, locators, locators, Locator)
VANTRY_REFERENCE_ARRAY(GenericDescriptor, linkedSubDescriptor, LinkedSubDescriptor, linkedSubDescriptors,
                       subDescriptors, SubDescriptor)

}}}

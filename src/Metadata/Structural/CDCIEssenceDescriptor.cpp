#include "Metadata/Structural/CDCIEssenceDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Boolean.h"
#include "Types/Int16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(CDCIEssenceDescriptor, GenericPictureEssenceDescriptor, cdciEssenceDescriptor)
VANTRY_BASE_SET(CDCIEssenceDescriptor, GenericPictureEssenceDescriptor)

VANTRY_VALUE(CDCIEssenceDescriptor, componentDepth, componentDepth, UInt32)
VANTRY_VALUE(CDCIEssenceDescriptor, horizontalSubsampling, horizontalSubsampling, UInt32)
VANTRY_VALUE(CDCIEssenceDescriptor, verticalSubsampling, verticalSubsampling, UInt32)
VANTRY_VALUE(CDCIEssenceDescriptor, colorSiting, colorSiting, UInt8)
VANTRY_VALUE(CDCIEssenceDescriptor, reversedByteOrder, reversedByteOrder, Boolean)
VANTRY_VALUE(CDCIEssenceDescriptor, paddingBits, paddingBits, Int16)
VANTRY_VALUE(CDCIEssenceDescriptor, alphaSampleDepth, alphaSampleDepth, UInt32)
VANTRY_VALUE(CDCIEssenceDescriptor, blackRefLevel, blackRefLevel, UInt32)
VANTRY_VALUE(CDCIEssenceDescriptor, whiteRefLevel, whiteRefLevel, UInt32)
VANTRY_VALUE(CDCIEssenceDescriptor, colorRange, colorRange, UInt32)

}}}

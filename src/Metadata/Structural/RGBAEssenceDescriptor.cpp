#include "Metadata/Structural/RGBAEssenceDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/DataValue.h"
#include "Types/Orientation.h"
#include "Types/RGBALayout.h"
#include "Types/UInt32.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(RGBAEssenceDescriptor, GenericPictureEssenceDescriptor, rgbaEssenceDescriptor)

VANTRY_VALUE(RGBAEssenceDescriptor, componentMaxRef, componentMaxRef, UInt32)
VANTRY_VALUE(RGBAEssenceDescriptor, componentMinRef, componentMinRef, UInt32)
VANTRY_VALUE(RGBAEssenceDescriptor, alphaMaxRef, alphaMaxRef, UInt32)
VANTRY_VALUE(RGBAEssenceDescriptor, alphaMinRef, alphaMinRef, UInt32)
VANTRY_VALUE(RGBAEssenceDescriptor, scanningDirection, scanningDirection, Orientation)
VANTRY_VALUE(RGBAEssenceDescriptor, pixelLayout, pixelLayout, RGBALayout)
VANTRY_VALUE(RGBAEssenceDescriptor, palette, palette, DataValue)
VANTRY_VALUE(RGBAEssenceDescriptor, paletteLayout, paletteLayout, RGBALayout)

}}}

#include "Metadata/Structural/JPEG2000PictureSubDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/J2KCodingStyleDefault.h"
#include "Types/J2KPictureComponent.h"
#include "Types/J2KQuantisationDefault.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(JPEG2000PictureSubDescriptor, SubDescriptor, jpeg2000PictureSubDescriptor)

VANTRY_VALUE(JPEG2000PictureSubDescriptor, rsiz, rsiz, UInt16)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, xsiz, xsiz, UInt32)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, ysiz, ysiz, UInt32)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, xOsiz, xOsiz, UInt32)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, yOsiz, yOsiz, UInt32)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, xTsiz, xTsiz, UInt32)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, yTsiz, yTsiz, UInt32)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, xTOsiz, xTOsiz, UInt32)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, yTOsiz, yTOsiz, UInt32)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, csiz, csiz, UInt16)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, codingStyleDefault, codingStyleDefault, J2KCodingStyleDefault)
VANTRY_VALUE(JPEG2000PictureSubDescriptor, quantisationDefault, quantisationDefault, J2KQuantisationDefault)
VANTRY_VALUE_ARRAY(JPEG2000PictureSubDescriptor, j2KPictureComponent, J2KPictureComponent, j2KPictureComponents,
                   pictureComponentSizing, J2KPictureComponent)

}}}

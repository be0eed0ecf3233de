#include "Metadata/Structural/MPEG2VideoDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Boolean.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(MPEG2VideoDescriptor, CDCIEssenceDescriptor, mpeg2VideoDescriptor)

VANTRY_VALUE(MPEG2VideoDescriptor, singleSequence, singleSequence, Boolean)
VANTRY_VALUE(MPEG2VideoDescriptor, constantBFrames, constantBFrames, Boolean)
VANTRY_VALUE(MPEG2VideoDescriptor, codedContentType, codedContentType, UInt8)
VANTRY_VALUE(MPEG2VideoDescriptor, lowDelay, lowDelay, Boolean)
VANTRY_VALUE(MPEG2VideoDescriptor, closedGOP, closedGOP, Boolean)
VANTRY_VALUE(MPEG2VideoDescriptor, identicalGOP, identicalGOP, Boolean)
VANTRY_VALUE(MPEG2VideoDescriptor, maxGOP, maxGOP, UInt16)
VANTRY_VALUE(MPEG2VideoDescriptor, bPictureCount, bPictureCount, UInt16)
VANTRY_VALUE(MPEG2VideoDescriptor, bitRate, bitRate, UInt32)
VANTRY_VALUE(MPEG2VideoDescriptor, profileAndLevel, profileAndLevel, UInt8)

}}}

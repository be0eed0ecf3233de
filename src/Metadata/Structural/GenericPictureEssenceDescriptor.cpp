#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Int32.h"
#include "Types/Rational.h"
#include "Types/SignalStandard.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(GenericPictureEssenceDescriptor, FileDescriptor, genericPictureEssenceDescriptor)
VANTRY_BASE_SET(GenericPictureEssenceDescriptor, FileDescriptor)

VANTRY_VALUE(GenericPictureEssenceDescriptor, signalStandard, signalStandard, SignalStandard)
VANTRY_VALUE(GenericPictureEssenceDescriptor, frameLayout, frameLayout, UInt8)
VANTRY_VALUE(GenericPictureEssenceDescriptor, storedWidth, storedWidth, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, storedHeight, storedHeight, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, storedF2Offset, storedF2Offset, Int32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, sampledWidth, sampledWidth, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, sampledHeight, sampledHeight, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, sampledXOffset, sampledXOffset, Int32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, sampledYOffset, sampledYOffset, Int32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, displayHeight, displayHeight, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, displayWidth, displayWidth, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, displayXOffset, displayXOffset, Int32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, displayYOffset, displayYOffset, Int32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, displayF2Offset, displayF2Offset, Int32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, aspectRatio, aspectRatio, Rational)
VANTRY_VALUE(GenericPictureEssenceDescriptor, activeFormatDescriptor, activeFormatDescriptor, UInt8)
VANTRY_VALUE_ARRAY(GenericPictureEssenceDescriptor, videoLineMap, VideoLineMap, videoLineMap, videoLineMap, Int32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, alphaTransparency, alphaTransparency, UInt8)
VANTRY_VALUE(GenericPictureEssenceDescriptor, captureGamma, captureGamma, UniversalLabel)
VANTRY_VALUE(GenericPictureEssenceDescriptor, imageAlignmentOffset, imageAlignmentOffset, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, imageStartOffset, imageStartOffset, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, imageEndOffset, imageEndOffset, UInt32)
VANTRY_VALUE(GenericPictureEssenceDescriptor, fieldDominance, fieldDominance, UInt8)
VANTRY_VALUE(GenericPictureEssenceDescriptor, pictureEssenceCoding, pictureEssenceCoding, UniversalLabel)

}}}

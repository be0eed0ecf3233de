#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Boolean.h"
#include "Types/Int8.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(GenericSoundEssenceDescriptor, FileDescriptor, genericSoundEssenceDescriptor)
VANTRY_BASE_SET(GenericSoundEssenceDescriptor, FileDescriptor)

VANTRY_VALUE(GenericSoundEssenceDescriptor, audioSamplingRate, audioSamplingRate, Rational)
VANTRY_VALUE(GenericSoundEssenceDescriptor, lockedUnlocked, lockedUnlocked, Boolean)
VANTRY_VALUE(GenericSoundEssenceDescriptor, audioRefLevel, audioRefLevel, Int8)
VANTRY_VALUE(GenericSoundEssenceDescriptor, electroSpatialFormulation, electroSpatialFormulation, UInt8)
VANTRY_VALUE(GenericSoundEssenceDescriptor, channelCount, channelCount, UInt32)
VANTRY_VALUE(GenericSoundEssenceDescriptor, quantizationBits, quantizationBits, UInt32)
VANTRY_VALUE(GenericSoundEssenceDescriptor, dialNorm, dialNorm, Int8)
VANTRY_VALUE(GenericSoundEssenceDescriptor, soundEssenceCompression, soundEssenceCompression, UniversalLabel)

}}}

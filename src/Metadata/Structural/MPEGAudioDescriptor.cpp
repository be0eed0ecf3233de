#include "Metadata/Structural/MPEGAudioDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UInt32.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(MPEGAudioDescriptor, GenericSoundEssenceDescriptor, mpegAudioDescriptor)

VANTRY_VALUE(MPEGAudioDescriptor, mpegAudioBitRate, mpegAudioBitRate, UInt32)

}}}

#include "Metadata/Structural/WAVEAudioPhysicalDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Metadata/Structural/UnknownChunkSet.h"
#include "Types/UInt32.h"
#include "Types/UTF16String.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(WAVEAudioPhysicalDescriptor, PhysicalDescriptor, waveAudioPhysicalDescriptor)

VANTRY_VALUE(WAVEAudioPhysicalDescriptor, codingHistory, codingHistory, UTF16String)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, fileSecurityReport, fileSecurityReport, UInt32)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, fileSecurityWave, fileSecurityWave, UInt32)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, basicData, basicData, UTF16String)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, startModulation, startModulation, UTF16String)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, qualityEvent, qualityEvent, UTF16String)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, endModulation, endModulation, UTF16String)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, qualityParameter, qualityParameter, UTF16String)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, operatorComment, operatorComment, UTF16String)
VANTRY_VALUE(WAVEAudioPhysicalDescriptor, cueSheet, cueSheet, UTF16String)
VANTRY_REFERENCE_ARRAY(WAVEAudioPhysicalDescriptor, unknownBWFChunk, UnknownBWFChunk, unknownBWFChunks,
                       unknownBWFChunks, UnknownChunkSet)

}}}

#include "Metadata/Structural/WAVEAudioEssenceDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/DataStream.h"
#include "Types/Position.h"
#include "Types/Timestamp.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(WAVEAudioEssenceDescriptor, GenericSoundEssenceDescriptor, waveAudioEssenceDescriptor)
VANTRY_BASE_SET(WAVEAudioEssenceDescriptor, GenericSoundEssenceDescriptor)

VANTRY_VALUE(WAVEAudioEssenceDescriptor, blockAlign, blockAlign, UInt16)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, sequenceOffset, sequenceOffset, UInt8)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, avgBps, avgBps, UInt32)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, channelAssignment, channelAssignment, UniversalLabel)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeVersion, peakEnvelopeVersion, UInt32)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeFormat, peakEnvelopeFormat, UInt32)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, pointsPerPeakValue, pointsPerPeakValue, UInt32)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeBlockSize, peakEnvelopeBlockSize, UInt32)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, peakChannels, peakChannels, UInt32)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, peakFrames, peakFrames, UInt32)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, peakOfPeaksPosition, peakOfPeaksPosition, Position)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeTimestamp, peakEnvelopeTimestamp, Timestamp)
VANTRY_VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeData, peakEnvelopeData, DataStream)

}}}

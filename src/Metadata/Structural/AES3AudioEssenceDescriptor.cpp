#include "Metadata/Structural/AES3AudioEssenceDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/DataStream.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(AES3AudioEssenceDescriptor, WAVEAudioEssenceDescriptor, aes3AudioEssenceDescriptor)

VANTRY_VALUE(AES3AudioEssenceDescriptor, emphasis, emphasis, UInt8)
VANTRY_VALUE(AES3AudioEssenceDescriptor, blockStartOffset, blockStartOffset, UInt16)
VANTRY_VALUE(AES3AudioEssenceDescriptor, auxBitsMode, auxBitsMode, UInt8)
VANTRY_VALUE_ARRAY(AES3AudioEssenceDescriptor, channelStatusMode, ChannelStatusMode, channelStatusMode,
                   channelStatusMode, UInt8)
VANTRY_VALUE_ARRAY(AES3AudioEssenceDescriptor, fixedChannelStatusData, FixedChannelStatusData, fixedChannelStatusData,
                   fixedChannelStatusData, DataStream)
VANTRY_VALUE_ARRAY(AES3AudioEssenceDescriptor, userDataMode, UserDataMode, userDataMode, userDataMode, UInt8)
VANTRY_VALUE_ARRAY(AES3AudioEssenceDescriptor, fixedUserData, FixedUserData, fixedUserData, fixedUserData, DataStream)
VANTRY_VALUE(AES3AudioEssenceDescriptor, linkedTimecodeTrackID, linkedTimecodeTrackID, UInt32)
VANTRY_VALUE(AES3AudioEssenceDescriptor, smpte337mDataStreamNumber, smpte337mDataStreamNumber, UInt8)

}}}

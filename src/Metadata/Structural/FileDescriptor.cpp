#include "Metadata/Structural/FileDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Length.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(FileDescriptor, GenericDescriptor, fileDescriptor)
VANTRY_BASE_SET(FileDescriptor, GenericDescriptor)

VANTRY_VALUE(FileDescriptor, linkedTrack, linkedTrackID, UInt32)
VANTRY_VALUE(FileDescriptor, sampleRate, sampleRate, Rational)
VANTRY_VALUE(FileDescriptor, containerDuration, containerDuration, Length)
VANTRY_VALUE(FileDescriptor, essenceContainer, essenceContainer, UniversalLabel)
VANTRY_VALUE(FileDescriptor, codec, codec, UniversalLabel)

}}}

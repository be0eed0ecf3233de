#include "Metadata/Structural/UnknownChunkSet.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/DataStream.h"
#include "Types/UInt32.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(UnknownChunkSet, TrackableMetadataSet, unknownChunkSet)

VANTRY_VALUE(UnknownChunkSet, chunkID, chunkID, UInt32)
VANTRY_VALUE(UnknownChunkSet, chunkLength, chunkLength, UInt32)
VANTRY_VALUE(UnknownChunkSet, chunckData, chunckData, DataStream)

}}}

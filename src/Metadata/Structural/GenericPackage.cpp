#include "Metadata/Structural/GenericPackage.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Metadata/Structural/Track.h"
#include "Types/Timestamp.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"
#include "Types/UTF16String.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_BASE_SET(GenericPackage, TrackableMetadataSet)

GenericPackage::~GenericPackage() = default;

VANTRY_VALUE(GenericPackage, packageUID, packageUID, UMID32)
VANTRY_VALUE(GenericPackage, packageName, packageName, UTF16String)
VANTRY_VALUE(GenericPackage, packageCreationDate, packageCreationDate, Timestamp)
VANTRY_VALUE(GenericPackage, packageModifiedDate, packageModifiedDate, Timestamp)
VANTRY_REFERENCE_ARRAY(GenericPackage, track, Track, tracks, tracks, Track)

Track * GenericPackage::track(Types::UInt32 const & trackID) const
{
    for (unsigned int i = 0; i < tracksCount(); ++i)
    {
        Track * const candidate = track(i);
        Types::UInt32 const * const number = candidate != nullptr ? candidate->trackID() : nullptr;
        if (number != nullptr && *number == trackID)
            return candidate;
    }
    return nullptr;
}

}}}

#include "Metadata/Structural/SourceClip.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/SetClass.h"
#include "Metadata/Structural/Track.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(SourceClip, StructuralComponent, sourceClip)
VANTRY_BASE_SET(SourceClip, StructuralComponent)

VANTRY_VALUE(SourceClip, dataDefinition, dataDefinition, UniversalLabel)
VANTRY_VALUE(SourceClip, duration, duration, Length)
VANTRY_VALUE(SourceClip, startPosition, startPosition, Position)
VANTRY_VALUE(SourceClip, sourcePackageUID, sourcePackageID, UMID32)

Types::UInt32 const * SourceClip::sourceTrack() const
{
    return getValue<Types::UInt32>(*this, Labels::sourceTrackID());
}

void SourceClip::sourceTrackID(Types::UInt32 const * value)
{
    setValue(*this, Labels::sourceTrackID(), value);
}

void SourceClip::sourceTrack(Track const * track)
{
    sourceTrackID(track != nullptr ? track->trackID() : nullptr);
}

GenericPackage * SourceClip::sourcePackage() const
{
    return findTarget<GenericPackage>(*this, Labels::packageUID(), sourcePackageUID());
}

void SourceClip::sourcePackage(GenericPackage const * package)
{
    sourcePackageUID(package != nullptr ? package->packageUID() : nullptr);
}

}}}

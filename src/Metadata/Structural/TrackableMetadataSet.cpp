#include "Metadata/Structural/TrackableMetadataSet.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UUID.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_BASE_SET(TrackableMetadataSet, MetadataSet)

TrackableMetadataSet::~TrackableMetadataSet() = default;

Identification * TrackableMetadataSet::generation() const
{
    return findTarget<Identification>(*this, Labels::thisGenerationUID(),
                                      getValue<Types::UUID>(*this, Labels::generationUID()));
}

void TrackableMetadataSet::generation(Identification * identification)
{
    setValue(*this, Labels::generationUID(), identification != nullptr ? identification->thisGenerationUID() : nullptr);
}

}}}

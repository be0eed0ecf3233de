#include "Metadata/Structural/ContentStorage.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UMID32.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(ContentStorage, TrackableMetadataSet, contentStorage)

VANTRY_REFERENCE_BATCH(ContentStorage, package, Package, packages, packages, GenericPackage)
VANTRY_REFERENCE_BATCH(ContentStorage, essenceContainerData, EssenceContainerData, essenceContainerData,
                       essenceContainerData, EssenceContainerData)

GenericPackage * ContentStorage::package(Types::UMID32 const & packageUID) const
{
    return findTarget<GenericPackage>(*this, Labels::packageUID(), &packageUID);
}

EssenceContainerData * ContentStorage::essenceContainerData(Types::UMID32 const & linkedPackageUID) const
{
    return findTarget<EssenceContainerData>(*this, Labels::linkedPackageUID(), &linkedPackageUID);
}

}}}

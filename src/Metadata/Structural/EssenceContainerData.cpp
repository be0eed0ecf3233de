#include "Metadata/Structural/EssenceContainerData.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(EssenceContainerData, TrackableMetadataSet, essenceContainerData)

VANTRY_VALUE(EssenceContainerData, linkedPackageUID, linkedPackageUID, UMID32)
VANTRY_VALUE(EssenceContainerData, indexSID, indexSID, UInt32)
VANTRY_VALUE(EssenceContainerData, bodySID, bodySID, UInt32)

GenericPackage * EssenceContainerData::linkedPackage() const
{
    return findTarget<GenericPackage>(*this, Labels::packageUID(), linkedPackageUID());
}

void EssenceContainerData::linkedPackage(GenericPackage * package)
{
    linkedPackageUID(package != nullptr ? package->packageUID() : nullptr);
}

}}}

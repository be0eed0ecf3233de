#include "Metadata/Structural/Preface.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Timestamp.h"
#include "Types/UInt32.h"
#include "Types/UniversalLabel.h"
#include "Types/VersionType.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(Preface, TrackableMetadataSet, preface)

VANTRY_REFERENCE(Preface, primaryPackage, primaryPackage, GenericPackage)
VANTRY_REFERENCE(Preface, contentStorage, contentStorage, ContentStorage)
VANTRY_VALUE(Preface, lastModifiedDate, lastModifiedDate, Timestamp)
VANTRY_VALUE(Preface, version, version, VersionType)
VANTRY_VALUE(Preface, objectModelVersion, objectModelVersion, UInt32)
VANTRY_VALUE(Preface, operationalPattern, operationalPattern, UniversalLabel)
VANTRY_REFERENCE_ARRAY(Preface, identification, Identification, identifications, identificationList, Identification)
VANTRY_VALUE_BATCH(Preface, essenceContainer, EssenceContainer, essenceContainers, essenceContainers, UniversalLabel)
VANTRY_VALUE_BATCH(Preface, dmScheme, DmScheme, dmSchemes, dmSchemes, UniversalLabel)

}}}

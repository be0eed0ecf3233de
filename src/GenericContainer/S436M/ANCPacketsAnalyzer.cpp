#include "GenericContainer/S436M/ANCPacketsAnalyzer.h"

#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/GenericDataEssenceDescriptor.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"

namespace Vantry { namespace GenericContainer { namespace S436M {

Types::UniversalLabel ANCPacketsAnalyzer::universalLabel()
{
    static constexpr unsigned char LABEL[16] = {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x09,
                                                0x0D, 0x01, 0x03, 0x01, 0x02, 0x0E, 0x00, 0x00};
    return Types::UniversalLabel(LABEL);
}

unsigned char ANCPacketsAnalyzer::essenceElementType() const
{
    return 2;
}

Metadata::Structural::GenericDataEssenceDescriptor *
ANCPacketsAnalyzer::createMetadataSet(Metadata::PartitionMetadata & metadata)
{
    using namespace Metadata::Structural;
    return &createSet<GenericDataEssenceDescriptor>(metadata, StructuralMetadataKeys::ancPacketsDescriptor());
}

}}}

#include "Metadata/Structural/PrefaceHelpers.h"

#include "Exceptions/Check.h"
#include "Exceptions/NotFound.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Types/Batch.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

Preface & findPreface(PartitionMetadata const & metadata)
{
    Templates::vector<MetadataSet *> const sets = metadata.find(StructuralMetadataKeys::preface());
    Preface * const preface = sets.empty() ? nullptr : dynamic_cast<Preface *>(sets.front());
    if (preface == nullptr)
        VANTRY_FAIL(NotFound, "Didn't find MetadataSet with specified key.");
    return *preface;
}

Types::UniversalLabel const * operationalPattern(PartitionMetadata const & metadata)
{
    return findPreface(metadata).operationalPattern();
}

Templates::auto_ptr<Types::Batch> essenceContainers(PartitionMetadata const & metadata)
{
    int const LABEL_SIZE = 16;

    Preface const & preface = findPreface(metadata);
    Templates::auto_ptr<Types::Batch> labels(new Types::Batch(LABEL_SIZE));
    for (unsigned int i = 0; i < preface.essenceContainersCount(); ++i)
        if (Types::UniversalLabel const * const label = preface.essenceContainer(i))
            labels->append(label->clone());
    return labels;
}

}}}

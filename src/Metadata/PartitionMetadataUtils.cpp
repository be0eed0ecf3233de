#include "Metadata/PartitionMetadataUtils.h"

#include "Metadata/PartitionMetadata.h"
#include "Metadata/StrongTree.h"

namespace Vantry { namespace Metadata {

Packs::PartitionPack::PartitionStatus verifyPartitionMetadataStatus(PartitionMetadata const & metadata, bool closable)
{
    Templates::vector<Element *> incomplete;
    metadata.incompleteElements(incomplete);
    Templates::vector<Element *> open;
    if (closable)
        metadata.openElements(open);

    bool const closed = closable && open.empty();
    if (incomplete.empty())
        return closed ? Packs::PartitionPack::CLOSED_COMPLETE : Packs::PartitionPack::OPEN_COMPLETE;
    return closed ? Packs::PartitionPack::CLOSED_INCOMPLETE : Packs::PartitionPack::OPEN_INCOMPLETE;
}

void getChildStrongReferences(PartitionMetadata const & metadata, MetadataSet const & set,
                              Templates::vector<MetadataSet const *> & children, InstanceUIDs & visited,
                              bool withInvalid)
{
    StrongRefVisitor<InstanceUIDs>(metadata, children, visited).visitElements(set, withInvalid);
}

void getChildStrongReferencesRecursive(PartitionMetadata const & metadata, MetadataSet const & set,
                                       Templates::vector<MetadataSet const *> & order, InstanceUIDs & visited,
                                       bool withInvalid, bool depthFirst)
{
    appendStrongTree(metadata, set, order, visited, withInvalid, depthFirst);
}

}}

#include "Metadata/PartitionMetadataUtils.h"

#include "Metadata/PartitionMetadata.h"
#include "Metadata/StrongRefVisitor.h"

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
    StrongRefVisitor(metadata, children, visited).visitElements(set, withInvalid);
}

void getChildStrongReferencesRecursive(PartitionMetadata const & metadata, MetadataSet const & set,
                                       Templates::vector<MetadataSet const *> & order, InstanceUIDs & visited,
                                       bool withInvalid, bool depthFirst)
{
    // What is still to be descended into, the next one last: a file decides
    // how deep its tree is, so the stack mustn't.
    Templates::vector<MetadataSet const *> pending(1, &set);
    Templates::vector<MetadataSet const *> children;
    while (!pending.empty())
    {
        MetadataSet const & next = *pending.back();
        pending.pop_back();
        if (depthFirst && &next != &set)
            order.push_back(&next);

        children.clear();
        getChildStrongReferences(metadata, next, children, visited, withInvalid);
        if (!depthFirst)
            order.insert(order.end(), children.begin(), children.end());
        pending.insert(pending.end(), children.rbegin(), children.rend());
    }
}

}}

#pragma once

#include "Metadata/StrongRefVisitor.h"

namespace Vantry { namespace Metadata {

/// Appends all sets below a set, as getChildStrongReferencesRecursive does.
template <class InstanceUIDs>
void appendStrongTree(PartitionMetadata const & metadata, MetadataSet const & set,
                      Templates::vector<MetadataSet const *> & order, InstanceUIDs & visited, bool withInvalid,
                      bool depthFirst)
{
    // What is still to be descended into, the next one last: a file decides
    // how deep its tree is, so the stack mustn't.
    Templates::vector<MetadataSet const *> pending(1, &set);
    Templates::vector<MetadataSet const *> children;
    StrongRefVisitor<InstanceUIDs> visitor(metadata, children, visited);
    while (!pending.empty())
    {
        MetadataSet const & next = *pending.back();
        pending.pop_back();
        if (depthFirst && &next != &set)
            order.push_back(&next);

        children.clear();
        visitor.visitElements(next, withInvalid);
        if (!depthFirst)
            order.insert(order.end(), children.begin(), children.end());
        pending.insert(pending.end(), children.rbegin(), children.rend());
    }
}

}}

#include "Metadata/Listeners/Cascade.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/Element.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionMetadata.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Metadata { namespace Listeners {

void failCircular(Types::UUID const & instanceUID)
{
    VANTRY_FAIL(InvalidFormat, Platform::stringToWstring("Circular reference in MXF file! InstanceUID: ") +
                                   instanceUID.toString(Types::StringRepresentationEncodingType::DOTTED_BYTES));
}

Templates::vector<Types::UUID> Cascade::below(Types::UUID const & root)
{
    Templates::vector<Types::UUID> going(1, root);
    MetadataSet * const rootSet = find(root);
    if (rootSet == nullptr)
        return going;

    reach(*rootSet);
    keepWhatOthersOwn();
    sort();
    std::transform(sorted_.begin() + 1, sorted_.end(), std::back_inserter(going),
                   [](Node const * node) { return *node->set->instanceUID(); });
    return going;
}

void Cascade::reach(MetadataSet & root)
{
    nodeOf(root);
    for (std::size_t i = 0; i < nodes_.size(); ++i)
    {
        Node & node = nodes_[i];
        for (Types::UUID const & uuid : references_.ownedBy(*node.set))
        {
            MetadataSet * const set = find(uuid);
            if (set == nullptr)
                continue;
            Node & owned = nodeOf(*set);
            node.owned.push_back(&owned);
            ++owned.ownersAhead;
        }
    }
}

MetadataSet * Cascade::find(Types::UUID const & instanceUID) const
{
    Templates::vector<MetadataSet *> const found = metadata_.find(MetadataULs::instanceUID(), instanceUID);
    auto const named = std::find_if(found.begin(), found.end(),
                                    [&](MetadataSet const * set)
                                    { return set->instanceUID() != nullptr && *set->instanceUID() == instanceUID; });
    return named != found.end() ? *named : nullptr;
}

Cascade::Node & Cascade::nodeOf(MetadataSet & set)
{
    Node *& node = nodeOfSet_[&set];
    if (node == nullptr)
    {
        nodes_.push_back({&set, {}, 0, false});
        node = &nodes_.back();
    }
    return *node;
}

// What has an owner that wasn't reached stays, with all below it. The root
// goes, whoever owns it.
void Cascade::keepWhatOthersOwn()
{
    Templates::vector<Node *> staying;
    auto const keep = [&](Node & node)
    {
        if (&node == &nodes_.front() || node.stays)
            return;
        node.stays = true;
        staying.push_back(&node);
    };

    for (Node & node : nodes_)
        if (countOwners(*node.set) > node.ownersAhead)
            keep(node);
    while (!staying.empty())
    {
        Node const & owner = *staying.back();
        staying.pop_back();
        for (Node * owned : owner.owned)
        {
            --owned->ownersAhead;
            keep(*owned);
        }
    }
}

// Only the root has no owner to start with, and the sets of a circle always
// have one left.
void Cascade::sort()
{
    auto const isLeft = [](Node const & node)
    {
        return !node.stays && node.ownersAhead != 0;
    };
    if (!isLeft(nodes_.front()))
        sorted_.push_back(&nodes_.front());
    for (std::size_t i = 0; i < sorted_.size(); ++i)
        for (Node * owned : sorted_[i]->owned)
            if (--owned->ownersAhead == 0 && !owned->stays)
                sorted_.push_back(owned);

    auto const circular = std::find_if(nodes_.begin(), nodes_.end(), isLeft);
    if (circular != nodes_.end())
        failCircular(*circular->set->instanceUID());
}

unsigned int Cascade::countOwners(MetadataSet const & set) const
{
    ReferenceEntry const * const entry = references_.find(*set.instanceUID());
    if (entry == nullptr)
        return 0;
    Templates::vector<MetadataSet const *> owners;
    for (Element const * element : entry->strong)
        owners.push_back(&element->metadataSet());
    std::sort(owners.begin(), owners.end());
    return static_cast<unsigned int>(std::unique(owners.begin(), owners.end()) - owners.begin());
}

}}}

#include "Metadata/Listeners/GatheredChanges.h"

#include "Metadata/MetadataSet.h"
#include "Metadata/PartitionMetadata.h"

#include <algorithm>

namespace Vantry { namespace Metadata { namespace Listeners {

void GatheredChanges::created(MetadataSet & set)
{
    if (hears(set))
        createdSets_.insert(&set);
}

void GatheredChanges::modified(MetadataSet & set)
{
    if (hears(set))
        modifiedSets_.insert(&set);
}

bool GatheredChanges::hears(MetadataSet const & set)
{
    auto * const owner = committing_ ? nullptr : dynamic_cast<PartitionMetadata *>(set.owner());
    if (owner == nullptr)
        return false;
    if (std::find(partitions_.begin(), partitions_.end(), owner) == partitions_.end())
        partitions_.push_back(owner);
    return true;
}

Templates::vector<MetadataSet *> GatheredChanges::present(Sets const & sets) const
{
    Templates::vector<MetadataSet *> found;
    if (sets.empty())
        return found;
    for (PartitionMetadata const * metadata : partitions_)
        for (auto const & entry : *metadata)
            if (sets.count(entry.second) != 0)
                found.push_back(entry.second);
    std::sort(found.begin(), found.end());
    return found;
}

}}}

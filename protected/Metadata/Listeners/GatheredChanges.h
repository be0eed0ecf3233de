#pragma once

#include "Platform/Allocation.h"
#include "Platform/Allocator.h"
#include "Templates/Containers.h"

#include <functional>
#include <set>

namespace Vantry { namespace Metadata {

class MetadataSet;
class PartitionMetadata;

namespace Listeners {

/// Sets that were created or changed since the last commit. It is deaf during
/// a commit, so that a listener doesn't hear of its own changes, and stays so
/// when that throws, up to the next one.
class GatheredChanges
{
public:
    VANTRY_CLASS_ALLOCATION

    void created(MetadataSet & set);
    void modified(MetadataSet & set);

    /// Calls `body()` and forgets what was gathered.
    template <class Body>
    void commit(Body const & body)
    {
        committing_ = true;
        body();
        createdSets_.clear();
        modifiedSets_.clear();
        partitions_.clear();
        committing_ = false;
    }

    /// The partition that the first change was in; only when there was one.
    PartitionMetadata & metadata() const { return *partitions_.front(); }

    /// Those that are in their partition still. Others were removed, or failed
    /// to load after their first values were told.
    Templates::vector<MetadataSet *> createdSets() const { return present(createdSets_); }
    Templates::vector<MetadataSet *> modifiedSets() const { return present(modifiedSets_); }

private:
    using Sets = std::set<MetadataSet *, std::less<>, Platform::Allocator<MetadataSet *>>;

    bool hears(MetadataSet const & set);
    Templates::vector<MetadataSet *> present(Sets const & sets) const;

    bool committing_ = false;
    // In which something has changed. They are forgotten with the changes: the
    // listener may outlive them.
    Templates::vector<PartitionMetadata *> partitions_;
    Sets createdSets_;
    Sets modifiedSets_;
};

}
}}

#pragma once

#include "Metadata/PartitionMetadata.h"
#include "Platform/Allocator.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

#include <functional>
#include <unordered_map>
#include <utility>

namespace Vantry { namespace Metadata {

/// The sets of a partition by key. It owns them.
class SetRegister
{
public:
    using Sets = PartitionMetadata::MetadataSets;
    using Row = Templates::vector<MetadataSet *>;

    SetRegister() = default;
    SetRegister(SetRegister const &) = delete;
    SetRegister & operator=(SetRegister const &) = delete;
    ~SetRegister();

    void add(Templates::auto_ptr<MetadataSet> set);

    /// Gives a set up; null when it isn't here.
    Templates::auto_ptr<MetadataSet> remove(MetadataSet & set);

    bool has(MetadataSet const & set) const { return places().count(&set) != 0; }

    /// Whether one set stands ahead of another; both are here.
    bool isAhead(MetadataSet const & left, MetadataSet const & right) const;

    Sets const & sets() const noexcept { return sets_; }

    /// The sets in the same order, side by side: a walk over them is spared
    /// the tree. The row is good until a set comes or goes.
    Row const & row() const;

private:
    struct Place
    {
        Sets::const_iterator entry;
        // Counts up with each set that comes.
        UInt64 number;
    };
    using Places = std::unordered_map<MetadataSet const *, Place, std::hash<MetadataSet const *>, std::equal_to<>,
                                      Platform::Allocator<std::pair<MetadataSet const * const, Place>>>;
    using Ends = Templates::map<KLV::Key, Sets::const_iterator>;

    Places const & places() const;

    Sets sets_;

    // Empty when it isn't known.
    mutable Row row_;

    // The last set of each key. There are few keys, and the next set mostly
    // has one of them.
    Ends lastOfKey_;

    // Where a set is among any number with its key. That is asked when sets
    // go, and made then for those that were there.
    mutable Places places_;
    mutable UInt64 lastNumber_ = 0;
    mutable bool placesKnown_ = false;
};

}}

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

    SetRegister() = default;
    SetRegister(SetRegister const &) = delete;
    SetRegister & operator=(SetRegister const &) = delete;
    ~SetRegister();

    void add(Templates::auto_ptr<MetadataSet> set);

    /// Gives a set up; null when it isn't here.
    Templates::auto_ptr<MetadataSet> remove(MetadataSet & set) noexcept;

    bool has(MetadataSet const & set) const { return places_.count(&set) != 0; }

    /// Whether one set stands ahead of another; both are here.
    bool isAhead(MetadataSet const & left, MetadataSet const & right) const;

    Sets const & sets() const noexcept { return sets_; }

private:
    struct Place
    {
        Sets::iterator entry;
        // Counts up with each set that comes.
        UInt64 number;
    };
    using Places = std::unordered_map<MetadataSet const *, Place, std::hash<MetadataSet const *>, std::equal_to<>,
                                      Platform::Allocator<std::pair<MetadataSet const * const, Place>>>;

    Sets sets_;
    // A key may have any number of sets, and one of them is to be found.
    Places places_;
    UInt64 lastNumber_ = 0;
};

}}

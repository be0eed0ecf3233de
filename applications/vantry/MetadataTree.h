#pragma once

#include "Metadata/MetadataSet.h"
#include "Types/UUID.h"
#include "Warnings.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
}

namespace Application {

class SetNames;

/// The sets of a partition in the order of their tree: the Preface, each set
/// ahead of what it owns and that ahead of its next sibling; then the sets
/// outside of it, in the same manner. Each set is there once, whatever
/// references say.
class MetadataTree
{
public:
    using Place = std::size_t;

    struct Node
    {
        Metadata::MetadataSet const * set;

        /// Whose set it is; none for the Preface and for sets that nobody
        /// owns.
        std::optional<Place> parent;

        /// How many are above it.
        unsigned depth;
    };

    /// The metadata are lent; so are the names, for the messages.
    MetadataTree(Metadata::PartitionMetadata const & metadata, SetNames const & names);

    std::vector<Node> const & nodes() const { return nodes_; }

    /// Where the sets outside the tree begin.
    Place outside() const { return outside_; }

    /// The place of the set with this instance identifier, the first where
    /// several have it.
    std::optional<Place> find(Types::UUID const & instanceUID) const;

    /// What is wrong with identifiers and references.
    std::vector<std::string> warnings() const { return warnings_.all(); }

private:
    void enter(Metadata::MetadataSet const & set);
    void walk(Metadata::MetadataSet const & root);
    std::vector<Metadata::MetadataSet const *> childrenOf(Metadata::MetadataSet const & set);
    std::string nameOf(Metadata::MetadataSet const & set) const;

    SetNames const & names_;
    std::map<Types::UUID, Metadata::MetadataSet const *> sets_;
    std::set<Metadata::MetadataSet const *> owned_;
    std::unordered_map<Metadata::MetadataSet const *, Place> places_;
    std::vector<Node> nodes_;
    Place outside_ = 0;
    Warnings warnings_;
};

}
}

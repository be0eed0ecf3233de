#pragma once

#include "Metadata/Listeners/ReferenceRegister.h"

#include <deque>

namespace Vantry { namespace Metadata {

class PartitionMetadata;

namespace Listeners {

/// What goes with a set: what it owns and nothing else owns, and what that
/// owns, down to the leaves.
class Cascade
{
public:
    Cascade(PartitionMetadata const & metadata, ReferenceRegister const & references) :
        metadata_(metadata), references_(references)
    {
    }

    /// The identifiers of the set and of all that go with it, owners ahead of
    /// what they own.
    ///
    /// \throws Exceptions::InvalidFormat when one of them owns itself by way
    ///         of others.
    Templates::vector<Types::UUID> below(Types::UUID const & root);

private:
    // A set that is reached from the root.
    struct Node
    {
        MetadataSet * set;
        Templates::vector<Node *> owned;
        unsigned int ownersAhead;
        bool stays;
    };
    using Nodes = std::deque<Node, Platform::Allocator<Node>>;

    void reach(MetadataSet & root);
    MetadataSet * find(Types::UUID const & instanceUID) const;
    Node & nodeOf(MetadataSet & set);
    void keepWhatOthersOwn();
    void sort();
    unsigned int countOwners(MetadataSet const & set) const;

    PartitionMetadata const & metadata_;
    ReferenceRegister const & references_;

    // In the order in which they are reached, the root first.
    Nodes nodes_;
    Templates::map<MetadataSet *, Node *> nodeOfSet_;
    Templates::vector<Node const *> sorted_;
};

/// \throws Exceptions::InvalidFormat.
[[noreturn]] void failCircular(Types::UUID const & instanceUID);

}
}}

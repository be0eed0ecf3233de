#pragma once

#include "Metadata/StrongReferences.h"
#include "Templates/Containers.h"
#include "Types/StrongReference.h"

namespace Vantry { namespace Metadata {

class PartitionMetadata;

/// The set that a reference means; null when it isn't there.
MetadataSet const * findReferenced(PartitionMetadata const & metadata, Types::StrongReference const & reference);

/// \throws Exceptions::InvalidFormat.
[[noreturn]] void failMetAgain(Types::StrongReference const & reference);

/// Gathers the sets that the visited elements own. A set is met once in a
/// walk: owned twice, it fails like one that owns itself.
///
/// `InstanceUIDs` is a set of Types::UUID.
template <class InstanceUIDs>
class StrongRefVisitor : public StrongReferences
{
public:
    /// \param children  takes the sets
    /// \param visited   identifiers that the walk has met
    StrongRefVisitor(PartitionMetadata const & metadata, Templates::vector<MetadataSet const *> & children,
                     InstanceUIDs & visited) :
        metadata_(metadata), children_(children), visited_(visited)
    {
    }

    using StrongReferences::visit;

    void visit(Types::StrongReference const & reference) override
    {
        MetadataSet const * const child = findReferenced(metadata_, reference);
        if (child == nullptr)
            return;
        if (!visited_.insert(reference.uuid()).second)
            failMetAgain(reference);
        children_.push_back(child);
    }

private:
    PartitionMetadata const & metadata_;
    Templates::vector<MetadataSet const *> & children_;
    InstanceUIDs & visited_;
};

}}

#pragma once

#include "Metadata/PartitionMetadataUtils.h"
#include "Metadata/StrongReferences.h"

namespace Vantry { namespace Metadata {

/// Gathers the sets that the visited elements own. A set is met once in a
/// walk: owned twice, it fails like one that owns itself.
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

    void visit(Types::StrongReference const & reference) override;

private:
    PartitionMetadata const & metadata_;
    Templates::vector<MetadataSet const *> & children_;
    InstanceUIDs & visited_;
};

}}

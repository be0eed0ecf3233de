#pragma once

#include "Metadata/PartitionMetadataListener.h"
#include "Templates/Containers.h"
#include "Types/UniversalLabel.h"

/// Listeners to the sets of a PartitionMetadata.
namespace Vantry { namespace Metadata { namespace Listeners {

/// Finds sets by the value of an attribute.
class VANTRY_EXPORT MetadataIndexListener : public PartitionMetadataListener
{
public:
    ~MetadataIndexListener() override;

    /// The sets in which the attribute has this value; none for an attribute
    /// that isn't indexed. Values are equal when they have the same bytes.
    virtual Templates::vector<MetadataSet *> find(Types::UniversalLabel const & label,
                                                  Types::SimpleDataType const & value) const = 0;

    /// Whether the attribute is indexed.
    virtual bool isIndexed(Types::UniversalLabel const & label) const = 0;
};

}}}

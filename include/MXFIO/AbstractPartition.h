#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
}
namespace Packs {
class PartitionPack;
}

/// Reads and writes MXF files (SMPTE 377M).
namespace MXFIO {

/// A partition of a file, as far as it can be known without reading on.
class VANTRY_EXPORT AbstractPartition
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~AbstractPartition();

    /// The header metadata; empty when the partition has none.
    virtual Templates::SharedPtr<Metadata::PartitionMetadata> metadata() = 0;

    /// The pack that opens the partition.
    virtual Packs::PartitionPack const & partitionPack() const = 0;

    /// Whether reading has come to the end of the body.
    virtual bool partitionEnded() const = 0;
};

}
}

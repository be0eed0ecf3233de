#pragma once

#include "MXFIO/PartitionProvider.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MXFIO {

class Reader2;

/// For a file that grows: it knows the partitions that its reader has met,
/// and the last of them reaches to the present end of the source.
class VANTRY_EXPORT StreamingPartitionProvider : public PartitionProvider
{
public:
    /// \param reader  lent; it outlives the provider
    StreamingPartitionProvider(Reader2 & reader, unsigned int bodySID);
    ~StreamingPartitionProvider() override;

    Partition * partitionContaining(UInt64 bodyOffset, Int64 editUnit) override;

private:
    using Partitions = Templates::map<UInt64, Partition *>;

    void refresh();
    UInt64 lengthOf(Partitions::const_iterator at);

    Reader2 & reader_;
    unsigned int bodySID_;
    Partitions partitions_;
    Partition * newest_;
};

}}

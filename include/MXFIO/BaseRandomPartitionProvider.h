#pragma once

#include "MXFIO/PartitionProvider.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MXFIO {

class Reader2;

/// Searches among the partitions that the random index pack has for a
/// container, from a first try on that derived classes make.
class VANTRY_EXPORT BaseRandomPartitionProvider : public PartitionProvider
{
public:
    /// \param reader  lent; with a random index pack
    BaseRandomPartitionProvider(Reader2 & reader, unsigned int bodySID);
    ~BaseRandomPartitionProvider() override;

    Partition * partitionContaining(UInt64 bodyOffset, Int64 editUnit) override;

    /// Which partition to try first, by its place in the list. What lies
    /// behind the list stands for its last.
    virtual UInt64 firstTry(UInt64 bodyOffset, Int64 editUnit) = 0;

    /// Is told of each partition that was opened.
    virtual void learned(Partition * partition) = 0;

protected:
    Reader2 & reader() const { return reader_; }
    unsigned int bodySID() const { return bodySID_; }

    /// Where the container's partitions are, in order; the run-in doesn't
    /// count.
    Templates::vector<UInt64> const & partitionOffsets() const { return partitionOffsets_; }

private:
    Partition * openPartition(UInt64 index);

    Reader2 & reader_;
    unsigned int bodySID_;
    Templates::vector<UInt64> partitionOffsets_;
};

}}

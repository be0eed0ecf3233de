#pragma once

#include "Exceptions/BaseException.h"
#include "KLV/Packet.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "Metadata/PartitionMetadata.h"

#include <cstddef>

namespace Vantry { namespace Tests {

/// Runs an operation that may fail as the library does.
template <class Operation>
void attempt(Operation const & operation)
{
    try
    {
        operation();
    }
    catch (Exceptions::BaseException const &)
    {
        // A bad file.
    }
}

inline void readAll(MXFIO::Partition & partition)
{
    attempt([&] { partition.metadata(); });
    attempt(
        [&]
        {
            while (partition.nextIndexTableSegmentsKLV())
                continue;
        });
    attempt(
        [&]
        {
            while (partition.nextBodyKLV(4096))
                continue;
        });
}

/// Does all that there is to do with a file and returns the number of
/// partitions that a walk meets.
inline std::size_t use(MXFIO::Reader2 & reader)
{
    attempt([&] { reader.loadRipFromFooter(); });
    attempt([&] { reader.lastPartition(); });
    attempt([&] { reader.lastPartition(1000); });
    attempt([&] { reader.firstPartitionWithFinalMetadata()->metadata(); });
    attempt([&] { reader.backwardFirstPartitionWithFinalMetadata()->metadata(); });

    std::size_t partitions = 0;
    for (MXFIO::Partition * partition = reader.headerPartition(); partition != nullptr; ++partitions)
    {
        MXFIO::Partition * const current = partition;
        readAll(*current);
        partition = nullptr;
        attempt([&] { partition = reader.nextPartition(current); });
    }
    return partitions;
}

}}

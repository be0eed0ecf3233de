#pragma once

#include "DataIO/Chain.h"
#include "MXFIO/AbstractPartitionWriter.h"

namespace Vantry { namespace MXFIO {

/// What one pull gives: bytes, the partitions that they open, and perhaps a
/// promise to write some of them again. It counts as written only when it is
/// whole.
struct PulledUnit
{
    struct Opened
    {
        UInt64 offset;
        AbstractPartitionWriter::WrittenPack written;
    };

    /// \param theStatus  of partitions
    /// \param theStart   where in the file the unit goes
    /// \param before     where the last partition ahead of it is
    PulledUnit(Packs::PartitionPack::PartitionStatus theStatus, UInt64 theStart, UInt64 before) :
        status(theStatus), start(theStart), previousPartition(before)
    {
    }

    /// Where in the file its next byte goes.
    UInt64 offset() const { return start + chain.data_size(); }

    /// Keeps a partition that was written at `offset`.
    void opened(UInt64 offset, AbstractPartitionWriter::WrittenPack const & written)
    {
        partitions.push_back({offset, written});
        previousPartition = offset;
    }

    Packs::PartitionPack::PartitionStatus const status;
    UInt64 const start;
    UInt64 previousPartition;
    DataIO::Chain chain;
    Templates::vector<Opened> partitions;
    Templates::SharedPtr<FutureUpdater> updater;
};

}}

#pragma once

#include "Packs/PartitionPack.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class Chain;
}
namespace Metadata {
class PartitionMetadata;
}
namespace Types {
class Batch;
class UniversalLabel;
}

namespace MXFIO {

class FutureUpdater;

/// Lays out the bytes of partitions: pack, header metadata, index table
/// segments, and what a source gives behind them (SMPTE 377M, sections 5 to
/// 7). All partitions of one stream come from one writer.
class VANTRY_EXPORT AbstractPartitionWriter
{
public:
    VANTRY_CLASS_ALLOCATION

    enum Status : int
    {
        /// No partition has been written yet.
        WriterNotStarted,
        WriterHasData,
        /// There is no more data to write.
        WriterFinished
    };

    /// The pack as it was written, and the bytes of it and the fill item
    /// behind it.
    using WrittenPack = Templates::pair<Templates::SharedPtr<Packs::PartitionPack>, UInt64>;

    virtual ~AbstractPartitionWriter();

    /// The streams of the essence and of its index table; 0 when there is
    /// none.
    virtual unsigned int bodySID() const = 0;
    virtual unsigned int indexSID() const = 0;

    /// Bytes of the essence written so far.
    virtual UInt64 bodyOffset() const = 0;

    /// Bytes that header metadata takes in a partition, with the fill behind
    /// it.
    virtual UInt64 headerByteCount(Metadata::PartitionMetadata & metadata) const = 0;

    /// Bytes that index table segments take in the next partition, with the
    /// fill behind them.
    ///
    /// \param isFooter  whether all essence has been written
    virtual unsigned int indexByteCount(bool isFooter) const = 0;

    /// Appends a partition up to its essence.
    ///
    /// Places count from the start of the header partition.
    ///
    /// \param metadata           lent; null for none
    /// \param thisPartition      where it goes
    /// \param previousPartition  where the one ahead of it is; 0 for the header
    /// \param footerPartition    where the footer is; 0 while that isn't known
    /// \param writeEssence       whether essence is to follow
    /// \param isFooter           whether all essence has been written
    /// \param runInSize          bytes ahead of the partition that count for
    ///                           its alignment
    /// \throws Exceptions::InvalidValue when a gap is too small for the fill
    ///         item that should close it.
    virtual WrittenPack
    writePartition(Metadata::PartitionMetadata * metadata, Packs::PartitionPack::PartitionKind partitionKind,
                   Packs::PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition,
                   UInt64 previousPartition, UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
                   Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex,
                   bool writeEssence, bool isFooter, UInt64 runInSize, DataIO::Chain & chain) = 0;

    /// Appends the next piece of essence.
    ///
    /// \param complete  set to whether the piece ends a unit, so that a
    ///                  partition may follow
    /// \param updater   set when bytes of the piece are to be written again
    ///                  later
    /// \param duration  grows by the seconds that the piece covers
    virtual Status writeData(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<FutureUpdater> & updater,
                             Templates::Rational<Int64> & duration) = 0;

    virtual Status status() const = 0;

    /// The grid that the parts of a partition are aligned to, in bytes.
    virtual unsigned int kagSize() const = 0;
    virtual void kagSize(unsigned int kagSize) = 0;

protected:
    AbstractPartitionWriter() = default;
    AbstractPartitionWriter(AbstractPartitionWriter const &) = default;
    AbstractPartitionWriter & operator=(AbstractPartitionWriter const &) = default;
};

}
}

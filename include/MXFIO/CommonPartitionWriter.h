#pragma once

#include "MXFIO/AbstractPartitionWriter.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}

namespace MXFIO {

/// Writes partitions that have a pack and nothing else.
class VANTRY_EXPORT CommonPartitionWriter : public AbstractPartitionWriter
{
public:
    CommonPartitionWriter();
    CommonPartitionWriter(CommonPartitionWriter const &) = delete;
    CommonPartitionWriter & operator=(CommonPartitionWriter const &) = delete;
    ~CommonPartitionWriter() override;

    /// All 0.
    unsigned int bodySID() const override;
    unsigned int indexSID() const override;
    UInt64 bodyOffset() const override;
    UInt64 headerByteCount(Metadata::PartitionMetadata & metadata) const override;
    unsigned int indexByteCount(bool isFooter) const override;

    /// The status counts for metadata: a partition without them is
    /// CLOSED_COMPLETE, or GENERIC_STREAM if it was to be that. With a run-in
    /// the pack states a KAG size of 0, since the grid isn't counted from the
    /// start of the partition then.
    WrittenPack writePartition(Metadata::PartitionMetadata * metadata,
                               Packs::PartitionPack::PartitionKind partitionKind,
                               Packs::PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition,
                               UInt64 previousPartition, UInt64 footerPartition,
                               Types::UniversalLabel const & operationalPattern,
                               Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex,
                               bool writeEssence, bool isFooter, UInt64 runInSize, DataIO::Chain & chain) override;

    /// Adds nothing and says that all is complete.
    Status writeData(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<FutureUpdater> & updater,
                     Templates::Rational<Int64> & duration) override;

    /// Finished with the first partition.
    Status status() const override;

    /// 1 unless it is set. 0 counts as 1.
    unsigned int kagSize() const override;
    void kagSize(unsigned int kagSize) override;

protected:
    /// Writes the pack and aligns what follows.
    ///
    /// \param kagSize  what the pack states
    virtual WrittenPack writePartitionPack(Metadata::PartitionMetadata * metadata,
                                           Packs::PartitionPack::PartitionKind partitionKind,
                                           Packs::PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition,
                                           UInt64 previousPartition, UInt64 footerPartition,
                                           Types::UniversalLabel const & operationalPattern,
                                           Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata,
                                           bool writeIndex, bool writeEssence, bool isFooter, unsigned int kagSize,
                                           DataIO::DataSink & sink);

    /// Writes the partition up to its essence.
    virtual WrittenPack
    doWritePartition(Metadata::PartitionMetadata * metadata, Packs::PartitionPack::PartitionKind partitionKind,
                     Packs::PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition,
                     UInt64 previousPartition, UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
                     Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex,
                     bool writeEssence, bool isFooter, UInt64 runInSize, DataIO::DataSink & sink);

    /// A pack of version 1.2 with what this writer will write.
    Templates::SharedPtr<Packs::PartitionPack>
    createPartitionPack(Metadata::PartitionMetadata * metadata, Packs::PartitionPack::PartitionKind partitionKind,
                        Packs::PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition,
                        UInt64 previousPartition, UInt64 footerPartition,
                        Types::UniversalLabel const & operationalPattern,
                        Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex,
                        bool writeEssence, bool isFooter, unsigned int kagSize) const;

    /// The grid for the end of a footer's pack, where it is wider than
    /// `kagSize()`; 0 at first.
    void footerPackGrid(unsigned int grid) { footerPackGrid_ = grid; }
    unsigned int footerPackGrid() const { return footerPackGrid_; }

    /// Whether a partition has been written.
    bool partitionWritten() const { return partitionWritten_; }

    /// Whether the present partition is the footer or, while the place of that
    /// isn't known, one behind the essence.
    bool isFooterPartition() const { return isFooterPartition_; }

private:
    bool partitionWritten_;
    bool isFooterPartition_;
    unsigned int kagSize_;
    unsigned int footerPackGrid_;
};

}
}

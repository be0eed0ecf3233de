#pragma once

#include "MXFIO/CommonPartitionWriter.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/Declarations.h"

namespace Vantry { namespace MXFIO {

/// Writes partitions with header metadata, and places for index table segments
/// and essence that derived classes fill.
class VANTRY_EXPORT BasePartitionWriter : public CommonPartitionWriter
{
public:
    using SerializationOrder = Metadata::PartitionMetadata::SerializationOrder;

    BasePartitionWriter();
    ~BasePartitionWriter() override;

    /// Metadata with primer pack, spare space and fill.
    UInt64 headerByteCount(Metadata::PartitionMetadata & metadata) const override;

    /// Settles what index table segments the next partition gets.
    virtual void updateIndex();

    /// Writes index table segments and the fill behind them.
    virtual void writeIndexSegments(bool isFooter, DataIO::DataSink & sink);

    /// Enters the essence container in the content storage, once.
    ///
    /// \param contentStorage  null for that of the Preface
    virtual void updateEssenceContainerData(Metadata::PartitionMetadata & metadata,
                                            Metadata::Structural::ContentStorage * contentStorage);

    /// Completes the metadata of the essence, all of which was written.
    virtual void finalizeEssenceMetadata();

    /// The order of the metadata's sets.
    virtual SerializationOrder serializationOrder() const;
    virtual void serializationOrder(SerializationOrder order);

    /// Whether a partition behind the essence gets index table segments.
    virtual bool indexesAfterEndOfEssence() const;

    /// The grid for the end of the footer's pack; a multiple of `kagSize()`.
    /// One below that doesn't count.
    virtual void endOfFooterKAGSize(unsigned int kagSize);
    virtual unsigned int endOfFooterKAGSize() const;

    /// Bytes of fill behind the metadata, so that they can grow. What is too
    /// small for a fill item, below 20 bytes, is left out.
    void metadataSpareSpace(UInt64 bytes) { metadataSpareSpace_ = bytes; }

    /// Bytes up to which spare space is added to metadata; 0 for any number.
    /// Metadata that need more get no spare space.
    void metadataMaximumSpace(UInt64 bytes) { metadataMaximumSpace_ = bytes; }

    /// Append a partition as `writePartition` does. Operational pattern and
    /// essence containers are those of the Preface.
    ///
    /// \throws Exceptions::NotFound when there is no Preface.
    WrittenPack writeHeader(Metadata::PartitionMetadata & metadata, Packs::PartitionPack::PartitionStatus status,
                            UInt64 footerPartition, bool writeMetadata, bool writeIndex, bool writeEssence,
                            UInt64 runInSize, DataIO::Chain & chain);
    WrittenPack writeBody(Metadata::PartitionMetadata & metadata, Packs::PartitionPack::PartitionStatus status,
                          UInt64 thisPartition, UInt64 previousPartition, UInt64 footerPartition, bool writeMetadata,
                          bool writeIndex, bool writeEssence, bool isFooter, DataIO::Chain & chain);
    WrittenPack writeFooter(Metadata::PartitionMetadata & metadata, Packs::PartitionPack::PartitionStatus status,
                            UInt64 thisPartition, UInt64 previousPartition, bool writeMetadata, bool writeIndex,
                            DataIO::Chain & chain);

protected:
    WrittenPack
    doWritePartition(Metadata::PartitionMetadata * metadata, Packs::PartitionPack::PartitionKind partitionKind,
                     Packs::PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition,
                     UInt64 previousPartition, UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
                     Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex,
                     bool writeEssence, bool isFooter, UInt64 runInSize, DataIO::DataSink & sink) override;

private:
    UInt64 spareSpace(UInt64 metadataSize) const;
    UInt64 alignedSize(UInt64 size) const;
    void serializeMetadata(Metadata::PartitionMetadata & metadata, UInt64 headerByteCount,
                           DataIO::DataSink & sink) const;

    UInt64 metadataSpareSpace_;
    UInt64 metadataMaximumSpace_;
    SerializationOrder serializationOrder_;
};

}}

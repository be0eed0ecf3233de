#pragma once

#include "MXFIO/CommonPartitionWriter.h"

namespace Vantry {
namespace GenericStream {
class Source;
}

namespace MXFIO {

/// Writes the partitions of a generic stream, which have neither metadata nor
/// index (SMPTE 410).
class VANTRY_EXPORT GenericStreamPartitionWriter : public CommonPartitionWriter
{
public:
    GenericStreamPartitionWriter(Templates::auto_ptr<GenericStream::Source> source, unsigned int bodySID);
    ~GenericStreamPartitionWriter() override;

    unsigned int bodySID() const override;
    UInt64 bodyOffset() const override;

    /// Appends a partition up to its data.
    WrittenPack writeGenericStreamPartition(UInt64 thisPartition, UInt64 previousPartition, UInt64 footerPartition,
                                            Types::UniversalLabel const & operationalPattern,
                                            Templates::auto_ptr<Types::Batch> essenceContainers, bool isFooter,
                                            DataIO::Chain & chain);

    /// \throws Exceptions::InvalidValue for anything but a body partition with
    ///         essence and without metadata and run-in.
    WrittenPack writePartition(Metadata::PartitionMetadata * metadata,
                               Packs::PartitionPack::PartitionKind partitionKind,
                               Packs::PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition,
                               UInt64 previousPartition, UInt64 footerPartition,
                               Types::UniversalLabel const & operationalPattern,
                               Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex,
                               bool writeEssence, bool isFooter, UInt64 runInSize, DataIO::Chain & chain) override;

    /// Units of the stream end on the grid that the source keeps.
    Status writeData(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<FutureUpdater> & updater,
                     Templates::Rational<Int64> & duration) override;

    Status status() const override;

    /// Lent.
    GenericStream::Source & source() { return *source_; }

private:
    void append(DataIO::Chain & data, bool complete, DataIO::Chain & chain);

    Templates::auto_ptr<GenericStream::Source> const source_;
    unsigned int const bodySID_;
    bool finished_;
    UInt64 bodyOffset_;
};

}
}

#pragma once

#include "MXFIO/BasePartitionWriter.h"
#include "MXFIO/IndexTableGeneration.h"
#include "MXFIO/IndexTableSegmentType.h"

namespace Vantry {
namespace GenericContainer {
class Source;
}

namespace MXFIO {

class IndexTableGenerator;

/// Writes the partitions of an essence container and its index table.
class VANTRY_EXPORT PartitionWriter : public BasePartitionWriter
{
public:
    /// \param duringEssence  what segments partitions get while there is
    ///                       essence to come
    /// \param afterEssence   what segments partitions behind it get
    /// \param indexOnly      count the essence and make its index table, but
    ///                       write none of it
    /// \throws Exceptions::InvalidState when the source has no index table
    ///         generator.
    PartitionWriter(Templates::auto_ptr<GenericContainer::Source> source, unsigned int bodySID, unsigned int indexSID,
                    IndexTableGeneration duringEssence, IndexTableGeneration afterEssence, bool indexOnly,
                    IndexTableSegmentType segmentType);
    ~PartitionWriter() override;

    unsigned int bodySID() const override;
    unsigned int indexSID() const override;
    UInt64 bodyOffset() const override;
    unsigned int indexByteCount(bool isFooter) const override;

    /// A content package or, where essence is wrapped by the clip, a part of
    /// the clip.
    ///
    /// \throws Exceptions::InvalidState when the source goes on giving nothing
    ///         without coming to its end.
    Status writeData(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<FutureUpdater> & updater,
                     Templates::Rational<Int64> & duration) override;

    /// Finished with the source, or with `finalizeEssenceMetadata`.
    Status status() const override;

    /// The grid that the source keeps; in a footer partition the one that was
    /// set.
    using BasePartitionWriter::kagSize;
    unsigned int kagSize() const override;

    void updateIndex() override;
    void writeIndexSegments(bool isFooter, DataIO::DataSink & sink) override;
    void updateEssenceContainerData(Metadata::PartitionMetadata & metadata,
                                    Metadata::Structural::ContentStorage * contentStorage) override;
    void finalizeEssenceMetadata() override;
    bool indexesAfterEndOfEssence() const override;

    /// Lent.
    GenericContainer::Source & source() { return *source_; }

private:
    unsigned int indexKAGSize(bool isFooter) const;

    Templates::auto_ptr<GenericContainer::Source> const source_;
    IndexTableGenerator * const indexGenerator_;
    unsigned int const bodySID_;
    unsigned int const indexSID_;
    unsigned int const essenceKagSize_;
    bool const indexOnly_;
    bool finalized_;
    UInt64 bodyOffset_;
    Metadata::Structural::EssenceContainerData * essenceContainerData_;
};

}
}

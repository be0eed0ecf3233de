#pragma once

#include "MXFIO/BasePartitionWriter.h"
#include "MXFIO/BaseSourceHandler.h"

namespace Vantry { namespace MXFIO {

class PartitionWriter;

/// An essence container that a creator writes, or its partitions without any.
class GenericContainerSourceHandler : public BaseSourceHandler
{
public:
    /// Partitions without essence.
    explicit GenericContainerSourceHandler(Templates::auto_ptr<BasePartitionWriter> writer);

    explicit GenericContainerSourceHandler(Templates::auto_ptr<PartitionWriter> writer);
    ~GenericContainerSourceHandler() override;

    void serializationOrder(SerializationOrder order) override;
    void metadataSpace(UInt64 spareSpace, UInt64 maximumSpace) override;
    void updateEssenceContainerData(Metadata::PartitionMetadata & metadata,
                                    Metadata::Structural::ContentStorage * contentStorage) override;
    bool indexesAfterEndOfEssence() const override;
    AbstractPartitionWriter::WrittenPack writePartition(Metadata::PartitionMetadata & metadata,
                                                        BodyPartition const & partition,
                                                        DataIO::Chain & chain) override;
    bool isEssenceContainer() const override;
    KLVSource * source() const override;

    BasePartitionWriter & writer() const { return writer_; }

protected:
    void finalizeEssenceMetadata() override;

private:
    GenericContainerSourceHandler(BasePartitionWriter * writer, KLVSource * source);

    BasePartitionWriter & writer_;
    KLVSource * const source_;
};

}}

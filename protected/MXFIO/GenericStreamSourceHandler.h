#pragma once

#include "MXFIO/BaseSourceHandler.h"

namespace Vantry { namespace MXFIO {

class GenericStreamPartitionWriter;

/// A generic stream that a creator writes. It has no metadata and no index.
class GenericStreamSourceHandler : public BaseSourceHandler
{
public:
    explicit GenericStreamSourceHandler(Templates::auto_ptr<GenericStreamPartitionWriter> writer);
    ~GenericStreamSourceHandler() override;

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

protected:
    void finalizeEssenceMetadata() override;

private:
    explicit GenericStreamSourceHandler(GenericStreamPartitionWriter * writer);

    GenericStreamPartitionWriter & writer_;
};

}}

#include "MXFIO/GenericContainerSourceHandler.h"

#include "GenericContainer/Source.h"
#include "MXFIO/PartitionWriter.h"

namespace Vantry { namespace MXFIO {

GenericContainerSourceHandler::GenericContainerSourceHandler(Templates::auto_ptr<BasePartitionWriter> writer) :
    GenericContainerSourceHandler(writer.release(), nullptr)
{
}

GenericContainerSourceHandler::GenericContainerSourceHandler(Templates::auto_ptr<PartitionWriter> writer) :
    GenericContainerSourceHandler(writer.get(), &writer->source())
{
    writer.release();
}

GenericContainerSourceHandler::GenericContainerSourceHandler(BasePartitionWriter * writer, KLVSource * source) :
    BaseSourceHandler(Templates::auto_ptr<AbstractPartitionWriter>(writer)), writer_(*writer), source_(source)
{
}

GenericContainerSourceHandler::~GenericContainerSourceHandler() = default;

void GenericContainerSourceHandler::serializationOrder(SerializationOrder order)
{
    writer_.serializationOrder(order);
}

void GenericContainerSourceHandler::metadataSpace(UInt64 spareSpace, UInt64 maximumSpace)
{
    writer_.metadataSpareSpace(spareSpace);
    writer_.metadataMaximumSpace(maximumSpace);
}

void GenericContainerSourceHandler::updateEssenceContainerData(Metadata::PartitionMetadata & metadata,
                                                               Metadata::Structural::ContentStorage * contentStorage)
{
    writer_.updateEssenceContainerData(metadata, contentStorage);
}

bool GenericContainerSourceHandler::indexesAfterEndOfEssence() const
{
    return writer_.indexesAfterEndOfEssence();
}

AbstractPartitionWriter::WrittenPack
GenericContainerSourceHandler::writePartition(Metadata::PartitionMetadata & metadata, BodyPartition const & partition,
                                              DataIO::Chain & chain)
{
    return writer_.writeBody(metadata, partition.status, partition.offset, partition.previous, 0,
                             partition.withMetadata, partition.withIndex, partition.withEssence, partition.isFooter,
                             chain);
}

bool GenericContainerSourceHandler::isEssenceContainer() const
{
    return source_ != nullptr;
}

KLVSource * GenericContainerSourceHandler::source() const
{
    return source_;
}

void GenericContainerSourceHandler::finalizeEssenceMetadata()
{
    writer_.finalizeEssenceMetadata();
}

}}

#include "MXFIO/GenericStreamSourceHandler.h"

#include "GenericStream/Source.h"
#include "MXFIO/GenericStreamPartitionWriter.h"
#include "MXFIO/PatternOf.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Types/Batch.h"

namespace Vantry { namespace MXFIO {

GenericStreamSourceHandler::GenericStreamSourceHandler(Templates::auto_ptr<GenericStreamPartitionWriter> writer) :
    GenericStreamSourceHandler(writer.release())
{
}

GenericStreamSourceHandler::GenericStreamSourceHandler(GenericStreamPartitionWriter * writer) :
    BaseSourceHandler(Templates::auto_ptr<AbstractPartitionWriter>(writer)), writer_(*writer)
{
}

GenericStreamSourceHandler::~GenericStreamSourceHandler() = default;

void GenericStreamSourceHandler::serializationOrder(SerializationOrder) {}

void GenericStreamSourceHandler::metadataSpace(UInt64, UInt64) {}

void GenericStreamSourceHandler::updateEssenceContainerData(Metadata::PartitionMetadata &,
                                                            Metadata::Structural::ContentStorage *)
{
}

bool GenericStreamSourceHandler::indexesAfterEndOfEssence() const
{
    return false;
}

AbstractPartitionWriter::WrittenPack GenericStreamSourceHandler::writePartition(Metadata::PartitionMetadata & metadata,
                                                                                BodyPartition const & partition,
                                                                                DataIO::Chain & chain)
{
    return writer_.writeGenericStreamPartition(partition.offset, partition.previous, 0, patternOf(metadata),
                                               Metadata::Structural::essenceContainers(metadata), partition.isFooter,
                                               chain);
}

bool GenericStreamSourceHandler::isEssenceContainer() const
{
    return false;
}

KLVSource * GenericStreamSourceHandler::source() const
{
    return &writer_.source();
}

void GenericStreamSourceHandler::finalizeEssenceMetadata() {}

}}

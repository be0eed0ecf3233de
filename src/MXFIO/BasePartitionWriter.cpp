#include "MXFIO/BasePartitionWriter.h"

#include "DataIO/DataSink.h"
#include "MXFIO/FillHead.h"
#include "MXFIO/PatternOf.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Types/Batch.h"
#include "Utils/Fill.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace MXFIO {

using Packs::PartitionPack;

BasePartitionWriter::BasePartitionWriter() :
    metadataSpareSpace_(0), metadataMaximumSpace_(0), serializationOrder_(Metadata::PartitionMetadata::PrefaceFirst)
{
}

BasePartitionWriter::~BasePartitionWriter() = default;

UInt64 BasePartitionWriter::headerByteCount(Metadata::PartitionMetadata & metadata) const
{
    UInt64 const metadataSize = metadata.serializedSize(true, true);
    UInt64 const spare = spareSpace(metadataSize);
    UInt64 const size = alignedSize(metadataSize + spare);
    return size - metadataSize >= SMALLEST_FILL || spare == 0 ? size : alignedSize(metadataSize);
}

UInt64 BasePartitionWriter::alignedSize(UInt64 size) const
{
    return size + Utils::alignBytes(kagSize(), size, SMALLEST_FILL);
}

// The maximum caps spare space, not the metadata.
UInt64 BasePartitionWriter::spareSpace(UInt64 metadataSize) const
{
    if (metadataMaximumSpace_ == 0)
        return metadataSpareSpace_;
    if (metadataMaximumSpace_ <= metadataSize)
        return 0;
    return std::min(metadataSpareSpace_, metadataMaximumSpace_ - metadataSize);
}

void BasePartitionWriter::updateIndex() {}

void BasePartitionWriter::writeIndexSegments(bool, DataIO::DataSink &) {}

void BasePartitionWriter::updateEssenceContainerData(Metadata::PartitionMetadata &,
                                                     Metadata::Structural::ContentStorage *)
{
}

void BasePartitionWriter::finalizeEssenceMetadata() {}

BasePartitionWriter::SerializationOrder BasePartitionWriter::serializationOrder() const
{
    return serializationOrder_;
}

void BasePartitionWriter::serializationOrder(SerializationOrder order)
{
    serializationOrder_ = order;
}

bool BasePartitionWriter::indexesAfterEndOfEssence() const
{
    return false;
}

void BasePartitionWriter::endOfFooterKAGSize(unsigned int kagSize)
{
    footerPackGrid(kagSize);
}

unsigned int BasePartitionWriter::endOfFooterKAGSize() const
{
    return footerPackGrid();
}

AbstractPartitionWriter::WrittenPack BasePartitionWriter::writeHeader(Metadata::PartitionMetadata & metadata,
                                                                      PartitionPack::PartitionStatus status,
                                                                      UInt64 footerPartition, bool writeMetadata,
                                                                      bool writeIndex, bool writeEssence,
                                                                      UInt64 runInSize, DataIO::Chain & chain)
{
    return writePartition(&metadata, PartitionPack::HEADER_PARTITION, status, 0, 0, footerPartition,
                          patternOf(metadata), Metadata::Structural::essenceContainers(metadata), writeMetadata,
                          writeIndex, writeEssence, false, runInSize, chain);
}

AbstractPartitionWriter::WrittenPack BasePartitionWriter::writeBody(Metadata::PartitionMetadata & metadata,
                                                                    PartitionPack::PartitionStatus status,
                                                                    UInt64 thisPartition, UInt64 previousPartition,
                                                                    UInt64 footerPartition, bool writeMetadata,
                                                                    bool writeIndex, bool writeEssence, bool isFooter,
                                                                    DataIO::Chain & chain)
{
    return writePartition(&metadata, PartitionPack::BODY_PARTITION, status, thisPartition, previousPartition,
                          footerPartition, patternOf(metadata), Metadata::Structural::essenceContainers(metadata),
                          writeMetadata, writeIndex, writeEssence, isFooter, 0, chain);
}

AbstractPartitionWriter::WrittenPack BasePartitionWriter::writeFooter(Metadata::PartitionMetadata & metadata,
                                                                      PartitionPack::PartitionStatus status,
                                                                      UInt64 thisPartition, UInt64 previousPartition,
                                                                      bool writeMetadata, bool writeIndex,
                                                                      DataIO::Chain & chain)
{
    return writePartition(&metadata, PartitionPack::FOOTER_PARTITION, status, thisPartition, previousPartition,
                          thisPartition, patternOf(metadata), Metadata::Structural::essenceContainers(metadata),
                          writeMetadata, writeIndex, false, true, 0, chain);
}

AbstractPartitionWriter::WrittenPack BasePartitionWriter::doWritePartition(
    Metadata::PartitionMetadata * metadata, PartitionPack::PartitionKind partitionKind,
    PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition, UInt64 previousPartition,
    UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
    Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex, bool writeEssence,
    bool isFooter, UInt64 runInSize, DataIO::DataSink & sink)
{
    // Settles the index byte count, which the pack states.
    updateIndex();

    WrittenPack written = CommonPartitionWriter::doWritePartition(
        metadata, partitionKind, partitionStatus, thisPartition, previousPartition, footerPartition, operationalPattern,
        std::move(essenceContainers), writeMetadata, writeIndex, writeEssence, isFooter, runInSize, sink);
    PartitionPack const & pack = *written.first;
    if (pack.headerByteCount() != 0)
        serializeMetadata(*metadata, pack.headerByteCount(), sink);
    if (pack.indexByteCount() != 0)
        writeIndexSegments(isFooter, sink);
    return written;
}

void BasePartitionWriter::serializeMetadata(Metadata::PartitionMetadata & metadata, UInt64 headerByteCount,
                                            DataIO::DataSink & sink) const
{
    UInt64 const end = sink.absoluteOffset() + headerByteCount;
    metadata.serialize(sink, true, serializationOrder_, true);
    if (sink.absoluteOffset() != end)
        Utils::writeFillKLV(sink, end - sink.absoluteOffset(), FILL_BER_LENGTH);
}

}}

#include "MXFIO/CommonPartitionWriter.h"

#include "DataIO/Chain.h"
#include "DataIO/ChainDataSinkAdapter.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "MXFIO/FillHead.h"
#include "MXFIO/FutureUpdater.h"
#include "Types/Batch.h"
#include "Utils/Fill.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace MXFIO {

using Packs::PartitionPack;

namespace {

UInt64 const BLOCK_SIZE = 10240;

}

CommonPartitionWriter::CommonPartitionWriter() :
    partitionWritten_(false), isFooterPartition_(false), kagSize_(1), footerPackGrid_(0)
{
}

CommonPartitionWriter::~CommonPartitionWriter() = default;

unsigned int CommonPartitionWriter::bodySID() const
{
    return 0;
}

unsigned int CommonPartitionWriter::indexSID() const
{
    return 0;
}

UInt64 CommonPartitionWriter::bodyOffset() const
{
    return 0;
}

UInt64 CommonPartitionWriter::headerByteCount(Metadata::PartitionMetadata &) const
{
    return 0;
}

unsigned int CommonPartitionWriter::indexByteCount(bool) const
{
    return 0;
}

AbstractPartitionWriter::WrittenPack CommonPartitionWriter::writePartition(
    Metadata::PartitionMetadata * metadata, PartitionPack::PartitionKind partitionKind,
    PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition, UInt64 previousPartition,
    UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
    Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex, bool writeEssence,
    bool isFooter, UInt64 runInSize, DataIO::Chain & chain)
{
    isFooterPartition_ = footerPartition != 0 ? thisPartition == footerPartition : isFooter;

    DataIO::ChainDataSinkAdapter sink(chain, DataIO::Memory::MemoryBlockFactory::instance(), BLOCK_SIZE, runInSize);
    return doWritePartition(metadata, partitionKind, partitionStatus, thisPartition, previousPartition, footerPartition,
                            operationalPattern, std::move(essenceContainers), writeMetadata, writeIndex, writeEssence,
                            isFooter, runInSize, sink);
}

AbstractPartitionWriter::Status CommonPartitionWriter::writeData(DataIO::Chain &, bool & complete,
                                                                 Templates::SharedPtr<FutureUpdater> & updater,
                                                                 Templates::Rational<Int64> &)
{
    complete = true;
    updater.reset();
    return WriterFinished;
}

AbstractPartitionWriter::Status CommonPartitionWriter::status() const
{
    return partitionWritten_ ? WriterFinished : WriterNotStarted;
}

unsigned int CommonPartitionWriter::kagSize() const
{
    return kagSize_;
}

void CommonPartitionWriter::kagSize(unsigned int kagSize)
{
    kagSize_ = kagSize;
}

AbstractPartitionWriter::WrittenPack CommonPartitionWriter::doWritePartition(
    Metadata::PartitionMetadata * metadata, PartitionPack::PartitionKind partitionKind,
    PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition, UInt64 previousPartition,
    UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
    Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex, bool writeEssence,
    bool isFooter, UInt64 runInSize, DataIO::DataSink & sink)
{
    bool const isStream = partitionStatus == PartitionPack::GENERIC_STREAM;
    bool const withMetadata = writeMetadata && metadata != nullptr && !isStream;
    if (!withMetadata && !isStream)
        partitionStatus = PartitionPack::CLOSED_COMPLETE;

    WrittenPack written =
        writePartitionPack(withMetadata ? metadata : nullptr, partitionKind, partitionStatus, thisPartition,
                           previousPartition, footerPartition, operationalPattern, std::move(essenceContainers),
                           withMetadata, writeIndex, writeEssence, isFooter, runInSize == 0 ? kagSize() : 0, sink);
    partitionWritten_ = true;
    return written;
}

AbstractPartitionWriter::WrittenPack CommonPartitionWriter::writePartitionPack(
    Metadata::PartitionMetadata * metadata, PartitionPack::PartitionKind partitionKind,
    PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition, UInt64 previousPartition,
    UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
    Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex, bool writeEssence,
    bool isFooter, unsigned int kagSize, DataIO::DataSink & sink)
{
    Templates::SharedPtr<PartitionPack> const pack = createPartitionPack(
        metadata, partitionKind, partitionStatus, thisPartition, previousPartition, footerPartition, operationalPattern,
        std::move(essenceContainers), writeMetadata, writeIndex, writeEssence, isFooter, kagSize);
    unsigned int const footerGrid = partitionKind == PartitionPack::FOOTER_PARTITION ? footerPackGrid_ : 0;
    UInt64 const start = sink.absoluteOffset();
    pack->serialize(sink);
    Utils::kagAlign(sink, std::max(footerGrid, this->kagSize()), FILL_BER_LENGTH);
    return WrittenPack(pack, sink.absoluteOffset() - start);
}

Templates::SharedPtr<PartitionPack> CommonPartitionWriter::createPartitionPack(
    Metadata::PartitionMetadata * metadata, PartitionPack::PartitionKind partitionKind,
    PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition, UInt64 previousPartition,
    UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
    Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex, bool writeEssence,
    bool isFooter, unsigned int kagSize) const
{
    Templates::SharedPtr<PartitionPack> pack(
        new PartitionPack(Packs::buildPartitionPackKey(partitionKind, partitionStatus), kagSize, thisPartition,
                          writeEssence ? bodyOffset() : 0, operationalPattern, std::move(essenceContainers)));

    unsigned int const indexBytes = writeIndex ? indexByteCount(isFooter) : 0;
    pack->bodySID(writeEssence ? bodySID() : 0);
    pack->indexSID(indexBytes != 0 ? indexSID() : 0);
    pack->headerByteCount(writeMetadata ? headerByteCount(*metadata) : 0);
    pack->indexByteCount(indexBytes);
    pack->footerPartition(footerPartition);
    pack->previousPartition(previousPartition);
    pack->majorVersion(1);
    pack->minorVersion(2);
    return pack;
}

}}

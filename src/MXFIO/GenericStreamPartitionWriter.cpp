#include "MXFIO/GenericStreamPartitionWriter.h"

#include "DataIO/Chain.h"
#include "DataIO/ChainDataSinkAdapter.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "GenericStream/Source.h"
#include "MXFIO/FillHead.h"
#include "MXFIO/FutureUpdater.h"
#include "Types/Batch.h"
#include "Utils/Fill.h"

#include <utility>

namespace Vantry { namespace MXFIO {

using Packs::PartitionPack;

namespace {

UInt64 const FILL_BLOCK_SIZE = 1024;

}

GenericStreamPartitionWriter::GenericStreamPartitionWriter(Templates::auto_ptr<GenericStream::Source> source,
                                                           unsigned int bodySID) :
    source_(std::move(source)), bodySID_(bodySID), finished_(false), bodyOffset_(0)
{
}

GenericStreamPartitionWriter::~GenericStreamPartitionWriter() = default;

unsigned int GenericStreamPartitionWriter::bodySID() const
{
    return bodySID_;
}

UInt64 GenericStreamPartitionWriter::bodyOffset() const
{
    return bodyOffset_;
}

AbstractPartitionWriter::WrittenPack GenericStreamPartitionWriter::writeGenericStreamPartition(
    UInt64 thisPartition, UInt64 previousPartition, UInt64 footerPartition,
    Types::UniversalLabel const & operationalPattern, Templates::auto_ptr<Types::Batch> essenceContainers,
    bool isFooter, DataIO::Chain & chain)
{
    return writePartition(nullptr, PartitionPack::BODY_PARTITION, PartitionPack::GENERIC_STREAM, thisPartition,
                          previousPartition, footerPartition, operationalPattern, std::move(essenceContainers), false,
                          false, true, isFooter, 0, chain);
}

AbstractPartitionWriter::WrittenPack GenericStreamPartitionWriter::writePartition(
    Metadata::PartitionMetadata * metadata, PartitionPack::PartitionKind partitionKind,
    PartitionPack::PartitionStatus partitionStatus, UInt64 thisPartition, UInt64 previousPartition,
    UInt64 footerPartition, Types::UniversalLabel const & operationalPattern,
    Templates::auto_ptr<Types::Batch> essenceContainers, bool writeMetadata, bool writeIndex, bool writeEssence,
    bool isFooter, UInt64 runInSize, DataIO::Chain & chain)
{
    VANTRY_CHECK((writeMetadata == false), InvalidValue, "GenericStreamPartition does not contain metadata.");
    VANTRY_CHECK((writeEssence == true), InvalidValue, "GenericStreamPartition must contain essence.");
    VANTRY_CHECK((runInSize == 0), InvalidValue,
                 "GenericStreamPartition is a body partition and does not support runIn.");
    VANTRY_CHECK((partitionKind == PartitionPack::BODY_PARTITION), InvalidValue,
                 "GenericStreamPartition must be a body partition.");

    return CommonPartitionWriter::writePartition(
        metadata, partitionKind, partitionStatus, thisPartition, previousPartition, footerPartition, operationalPattern,
        std::move(essenceContainers), writeMetadata, writeIndex, writeEssence, isFooter, runInSize, chain);
}

AbstractPartitionWriter::Status GenericStreamPartitionWriter::writeData(DataIO::Chain & chain, bool & complete,
                                                                        Templates::SharedPtr<FutureUpdater> & updater,
                                                                        Templates::Rational<Int64> & duration)
{
    if (finished_)
        return WriterFinished;

    DataIO::Chain data;
    Templates::Rational<Int64> pieceDuration;
    bool const more = source_->next(data, complete, updater, pieceDuration);
    duration += pieceDuration;
    finished_ = source_->done() || (!more && data.data_size() == 0);
    append(data, complete, chain);
    return finished_ ? WriterFinished : WriterHasData;
}

// The stream counts from its own start: its partitions begin on their grid.
void GenericStreamPartitionWriter::append(DataIO::Chain & data, bool complete, DataIO::Chain & chain)
{
    UInt64 const size = data.data_size();
    if (size == 0)
        return;

    DataIO::ChainDataSinkAdapter sink(data, DataIO::Memory::MemoryBlockFactory::instance(), FILL_BLOCK_SIZE,
                                      bodyOffset_ + size);
    if (complete)
        Utils::kagAlign(sink, source_->kagSize(), FILL_BER_LENGTH);
    bodyOffset_ = sink.absoluteOffset();
    chain.push_back(data);
}

AbstractPartitionWriter::Status GenericStreamPartitionWriter::status() const
{
    if (finished_)
        return WriterFinished;
    return partitionWritten() ? WriterHasData : WriterNotStarted;
}

}}

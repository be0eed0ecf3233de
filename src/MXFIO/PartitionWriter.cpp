#include "MXFIO/PartitionWriter.h"

#include "DataIO/Chain.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidState.h"
#include "GenericContainer/Source.h"
#include "MXFIO/FillHead.h"
#include "MXFIO/FutureUpdater.h"
#include "MXFIO/IndexTableGenerator.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Types/UInt32.h"
#include "Utils/Fill.h"

#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

// Answers in a row that a source may leave empty.
unsigned int const MOST_EMPTY_PIECES = 100000;

}

PartitionWriter::PartitionWriter(Templates::auto_ptr<GenericContainer::Source> source, unsigned int bodySID,
                                 unsigned int indexSID, IndexTableGeneration duringEssence,
                                 IndexTableGeneration afterEssence, bool indexOnly, IndexTableSegmentType segmentType) :
    source_(std::move(source)),
    indexGenerator_(source_->indexTableGenerator()),
    bodySID_(bodySID),
    indexSID_(indexSID),
    essenceKagSize_(source_->kagSize()),
    indexOnly_(indexOnly),
    finalized_(false),
    bodyOffset_(0),
    essenceContainerData_(nullptr)
{
    VANTRY_CHECK(indexGenerator_ != 0, InvalidState,
                 "GenericContainer::Source does not contain a valid IndexTableGenerator.");

    indexGenerator_->indexSID(indexSID_);
    indexGenerator_->bodySID(bodySID_);
    indexGenerator_->indexStrategies(duringEssence, afterEssence, segmentType);
}

PartitionWriter::~PartitionWriter() = default;

unsigned int PartitionWriter::bodySID() const
{
    return bodySID_;
}

unsigned int PartitionWriter::indexSID() const
{
    return indexSID_;
}

UInt64 PartitionWriter::bodyOffset() const
{
    return bodyOffset_;
}

unsigned int PartitionWriter::indexByteCount(bool isFooter) const
{
    unsigned int const raw = indexGenerator_->rawIndexByteCount(isFooter);
    return static_cast<unsigned int>(raw + Utils::alignBytes(indexKAGSize(isFooter), raw, SMALLEST_FILL));
}

unsigned int PartitionWriter::indexKAGSize(bool isFooter) const
{
    return isFooter ? BasePartitionWriter::kagSize() : essenceKagSize_;
}

AbstractPartitionWriter::Status PartitionWriter::writeData(DataIO::Chain & chain, bool & complete,
                                                           Templates::SharedPtr<FutureUpdater> & updater,
                                                           Templates::Rational<Int64> & duration)
{
    DataIO::Chain piece;
    UInt64 size = 0;
    for (unsigned int empty = 0; size == 0; ++empty)
    {
        VANTRY_CHECK_TEXT(empty < MOST_EMPTY_PIECES || source_->done(), "source_ -> done ()", InvalidState,
                          "GenericContainer::Source gives no data and does not end.");

        Templates::Rational<Int64> pieceDuration;
        bool const more = source_->next(piece, complete, updater, pieceDuration);
        duration += pieceDuration;
        size = piece.data_size();
        if (size == 0 && (!more || empty >= MOST_EMPTY_PIECES))
            return WriterFinished;
    }

    bodyOffset_ += size;
    if (!indexOnly_)
        chain.push_back(piece);
    return status();
}

AbstractPartitionWriter::Status PartitionWriter::status() const
{
    if (!partitionWritten())
        return WriterNotStarted;
    return finalized_ || source_->done() ? WriterFinished : WriterHasData;
}

unsigned int PartitionWriter::kagSize() const
{
    return indexKAGSize(isFooterPartition());
}

void PartitionWriter::updateIndex()
{
    indexGenerator_->updateIndex();
}

void PartitionWriter::writeIndexSegments(bool isFooter, DataIO::DataSink & sink)
{
    indexGenerator_->writeIndexSegments(isFooter, sink);
    Utils::kagAlign(sink, indexKAGSize(isFooter), FILL_BER_LENGTH);
}

void PartitionWriter::updateEssenceContainerData(Metadata::PartitionMetadata & metadata,
                                                 Metadata::Structural::ContentStorage * contentStorage)
{
    using namespace Metadata::Structural;

    if (indexOnly_ || essenceContainerData_ != nullptr)
        return;
    if (contentStorage == nullptr)
        contentStorage = findPreface(metadata).contentStorage();
    VANTRY_CHECK(contentStorage != 0, InvalidFormat, "Preface has no ContentStorage");

    Types::UInt32 const bodySID(bodySID_);
    Types::UInt32 const indexSID(indexSID_);
    SourcePackage & package = source_->sourcePackage();
    auto & data = createSet<EssenceContainerData>(metadata, StructuralMetadataKeys::essenceContainerData());
    data.bodySID(&bodySID);
    data.indexSID(&indexSID);
    data.linkedPackage(&package);
    contentStorage->appendEssenceContainerData(&data);
    essenceContainerData_ = &data;
}

void PartitionWriter::finalizeEssenceMetadata()
{
    source_->finalize();
    finalized_ = true;
}

bool PartitionWriter::indexesAfterEndOfEssence() const
{
    return indexGenerator_->indexesAfterEndOfEssence();
}

}}

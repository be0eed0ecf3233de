#include "MXFIO/PullCreator.h"

#include "DataIO/ChainDataSinkAdapter.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "GenericContainer/Source.h"
#include "GenericStream/Source.h"
#include "MXFIO/CreatorListener.h"
#include "MXFIO/DefaultSIDGenerator.h"
#include "MXFIO/FutureUpdater.h"
#include "MXFIO/GenericStreamPartitionWriter.h"
#include "MXFIO/GenericStreamSourceHandler.h"
#include "MXFIO/PartitionWriter.h"
#include "MXFIO/PulledUnit.h"
#include "MXFIO/SourceHandlers.h"
#include "Metadata/PartitionMetadataUtils.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Packs/RandomIndexPack.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace MXFIO {

using Packs::PartitionPack;

namespace {

using Seconds = Templates::Rational<Int64>;

UInt64 const RIP_BLOCK_SIZE = 1024;

struct Settings
{
    UInt64 metadataSpareSpace = 0;
    UInt64 metadataMaximumSpace = 0;
    UInt64 runInSize = 0;
    bool writeRIP = true;
    bool footerHasMetadata = true;
    unsigned int metadataRepetitionPeriod = 0;
    unsigned int masterEditUnitsPerPartition = 0;
    Seconds masterSecondsPerPartition = 0;
    Seconds partitionMultiplexPeriod = 0;
    bool headerPartitionHasEssence = true;
    bool runInKagAligned = false;
    PullCreator::SerializationOrder serializationOrder = Metadata::PartitionMetadata::PrefaceFirst;
    unsigned int nonEssenceKAGSize = 1;
    bool useFirstContainerForIndexTableGenerationOnHeader = false;
    bool createSeparatePartitionsForIndex = false;
};

}

class PullCreator::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(Templates::SharedPtr<Metadata::PartitionMetadata> theMetadata) :
        metadata(std::move(theMetadata)),
        sidGenerator(new DefaultSIDGenerator),
        status(PullHeader),
        externalSource_(externalSources.begin())
    {
    }

    unsigned int nextBodySID();
    void add(unsigned int bodySID, Templates::auto_ptr<BaseSourceHandler> handler);
    void tellMetadataSpace();

    void pull(PulledUnit & unit);
    void commit(PulledUnit const & unit);
    void tell(PulledUnit const & unit) const;
    PulledUnit unitOf(PartitionPack::PartitionStatus partitionStatus) const
    {
        return {partitionStatus, bytesWritten_, previousPartition_};
    }

    Settings settings;
    Templates::SharedPtr<Metadata::PartitionMetadata> const metadata;
    Templates::auto_ptr<AbstractSIDGenerator> sidGenerator;
    SourceHandlers handlers;
    Templates::list<Templates::SharedPtr<GenericContainer::Source>> externalSources;
    Templates::vector<CreatorListener *> listeners;
    unsigned int repetitionCountdown = 0;
    unsigned int containers = 0;
    Status status;

private:
    void pullHeader(PulledUnit & unit);
    void pullExternalSource();
    void pullBody(PulledUnit & unit);
    void pullFooter(PulledUnit & unit);

    void updateEssenceContainerData();
    BasePartitionWriter & headerWriter();
    Status bodyOrFooter() const { return handlers.haveStreams() ? PullBody : PullFooter; }

    void openPartition(PulledUnit & unit);
    void writeBodyPartition(PulledUnit & unit, BaseSourceHandler & handler);
    void writeIndexPartition(PulledUnit & unit, BaseSourceHandler & handler, bool isFooter);
    void writePartition(PulledUnit & unit, BaseSourceHandler & handler, BodyPartition partition);
    bool repeatsMetadata();

    void pullData(PulledUnit & unit);
    void pullPiece();
    void decidePartition();
    bool changeTurn();
    void endStream(PulledUnit & unit);

    void endEssence(PulledUnit & unit);
    void writeLastIndex(PulledUnit & unit, BaseSourceHandler & handler);

    void writeRIP(PulledUnit & unit) const;

    Packs::RandomIndexPack rip_;
    UInt64 bytesWritten_ = 0;
    UInt64 previousPartition_ = 0;

    // A partition is due, and where the essence is it may begin.
    bool needPartition_ = false;
    bool partitionBoundary_ = true;

    // What the stream gave last: it stays when its source fails to complete
    // the metadata, for the next pull.
    DataIO::Chain piece_;
    Templates::SharedPtr<FutureUpdater> pieceUpdater_;
    bool streamEnded_ = false;

    // All essence has been written; what is left of streams is index.
    bool closingPhase_ = false;

    Templates::list<Templates::SharedPtr<GenericContainer::Source>>::iterator externalSource_;
};

unsigned int PullCreator::Impl::nextBodySID()
{
    unsigned int const currentBodySID = sidGenerator->bodySID(containers + 1);
    VANTRY_CHECK(currentBodySID > 0, InvalidValue, "BodySID value must be greater than 0!");
    return currentBodySID;
}

void PullCreator::Impl::add(unsigned int bodySID, Templates::auto_ptr<BaseSourceHandler> handler)
{
    handler->metadataSpace(settings.metadataSpareSpace, settings.metadataMaximumSpace);
    handler->serializationOrder(settings.serializationOrder);
    handlers.add(bodySID, std::move(handler));
    ++containers;
}

void PullCreator::Impl::tellMetadataSpace()
{
    for (auto const & entry : handlers.all())
        entry.second->metadataSpace(settings.metadataSpareSpace, settings.metadataMaximumSpace);
}

void PullCreator::Impl::pull(PulledUnit & unit)
{
    switch (status)
    {
    case PullHeader:
        return pullHeader(unit);
    case PullExternalSources:
        return pullExternalSource();
    case PullBody:
        return pullBody(unit);
    case PullFooter:
        return pullFooter(unit);
    case PullDone:
        return;
    }
}

void PullCreator::Impl::commit(PulledUnit const & unit)
{
    for (PulledUnit::Opened const & partition : unit.partitions)
        rip_.add(partition.written.first->bodySID(), partition.offset);
    previousPartition_ = unit.previousPartition;
    bytesWritten_ = unit.offset();
}

void PullCreator::Impl::tell(PulledUnit const & unit) const
{
    if (!unit.updater && unit.partitions.empty())
        return;

    // A listener may go while it is told.
    Templates::vector<CreatorListener *> const told = listeners;
    for (CreatorListener * listener : told)
    {
        if (unit.updater)
            listener->updaterCreated(unit.start, unit.updater);
        for (PulledUnit::Opened const & partition : unit.partitions)
            listener->partitionCreated(partition.offset, partition.written.first, partition.written.second);
    }
}

void PullCreator::Impl::pullHeader(PulledUnit & unit)
{
    updateEssenceContainerData();
    handlers.toFirst();
    externalSource_ = externalSources.begin();

    // A generic stream has partitions of its own.
    bool const withEssence = settings.headerPartitionHasEssence && handlers.current().isEssenceContainer();
    unit.opened(unit.start,
                headerWriter().writeHeader(*metadata, unit.status, 0, true, !settings.createSeparatePartitionsForIndex,
                                           withEssence, settings.runInKagAligned ? settings.runInSize : 0, unit.chain));

    needPartition_ = !withEssence;
    if (!settings.headerPartitionHasEssence)
        changeTurn();
    status = externalSource_ != externalSources.end() ? PullExternalSources : bodyOrFooter();
}

void PullCreator::Impl::updateEssenceContainerData()
{
    Metadata::Structural::ContentStorage * const contentStorage =
        Metadata::Structural::findPreface(*metadata).contentStorage();
    if (contentStorage != nullptr && contentStorage->essenceContainerDataCount() != 0)
        return;
    for (auto const & entry : handlers.all())
        entry.second->updateEssenceContainerData(*metadata, contentStorage);
}

BasePartitionWriter & PullCreator::Impl::headerWriter()
{
    bool const ofContainer =
        settings.headerPartitionHasEssence || settings.useFirstContainerForIndexTableGenerationOnHeader;
    return (ofContainer ? handlers.firstContainer() : handlers.withoutStream()).writer();
}

// The essence is read for what it tells of itself, and dropped.
void PullCreator::Impl::pullExternalSource()
{
    if (externalSource_ == externalSources.end())
    {
        status = bodyOrFooter();
        return;
    }

    GenericContainer::Source & source = **externalSource_;
    DataIO::Chain dropped;
    bool complete = true;
    Templates::SharedPtr<FutureUpdater> updater;
    Seconds duration;
    source.next(dropped, complete, updater, duration);
    if (dropped.data_size() == 0 || source.done())
    {
        source.finalize();
        ++externalSource_;
    }
}

void PullCreator::Impl::pullBody(PulledUnit & unit)
{
    if (needPartition_ && partitionBoundary_)
        openPartition(unit);
    else
        pullData(unit);
}

void PullCreator::Impl::openPartition(PulledUnit & unit)
{
    BaseSourceHandler & current = handlers.current();
    if (closingPhase_)
    {
        writeLastIndex(unit, current);
        status = bodyOrFooter();
        return;
    }

    if (settings.createSeparatePartitionsForIndex && current.indexByteCount(false) != 0)
        writeIndexPartition(unit, current, false);
    writeBodyPartition(unit, current);
    needPartition_ = false;
}

void PullCreator::Impl::writeBodyPartition(PulledUnit & unit, BaseSourceHandler & handler)
{
    BodyPartition partition = {};
    partition.withIndex = !settings.createSeparatePartitionsForIndex;
    partition.withEssence = true;
    writePartition(unit, handler, partition);
}

void PullCreator::Impl::writeIndexPartition(PulledUnit & unit, BaseSourceHandler & handler, bool isFooter)
{
    BodyPartition partition = {};
    partition.withIndex = true;
    partition.isFooter = isFooter;
    writePartition(unit, handler, partition);
}

void PullCreator::Impl::writePartition(PulledUnit & unit, BaseSourceHandler & handler, BodyPartition partition)
{
    partition.status = unit.status;
    partition.offset = unit.offset();
    partition.previous = unit.previousPartition;
    partition.withMetadata = handler.isEssenceContainer() && repeatsMetadata();
    unit.opened(partition.offset, handler.writePartition(*metadata, partition, unit.chain));
}

bool PullCreator::Impl::repeatsMetadata()
{
    if (settings.metadataRepetitionPeriod == 0)
        return false;
    if (repetitionCountdown > 1)
    {
        --repetitionCountdown;
        return false;
    }
    repetitionCountdown = settings.metadataRepetitionPeriod;
    return true;
}

void PullCreator::Impl::pullData(PulledUnit & unit)
{
    if (!streamEnded_)
        pullPiece();
    if (streamEnded_)
        handlers.current().finish();

    unit.chain.push_back(piece_);
    unit.updater.swap(pieceUpdater_);
    if (streamEnded_)
        endStream(unit);
    else
        decidePartition();
}

void PullCreator::Impl::pullPiece()
{
    bool complete = partitionBoundary_;
    AbstractPartitionWriter::Status const writerStatus = handlers.current().writeData(piece_, complete, pieceUpdater_);
    partitionBoundary_ = complete;
    streamEnded_ = writerStatus == AbstractPartitionWriter::WriterFinished;
}

// Another container takes over between units only.
void PullCreator::Impl::decidePartition()
{
    BaseSourceHandler & current = handlers.current();
    if (current.partitionIsFull(settings.masterEditUnitsPerPartition, settings.masterSecondsPerPartition))
    {
        needPartition_ = true;
        current.restartPartition();
    }
    if (partitionBoundary_ && current.turnIsOver(settings.partitionMultiplexPeriod))
    {
        needPartition_ = true;
        changeTurn();
    }
}

// False when no container has essence left.
bool PullCreator::Impl::changeTurn()
{
    bool const found = handlers.toNext();
    handlers.current().restartPartition();
    handlers.current().beginTurn(settings.masterSecondsPerPartition);
    return found;
}

void PullCreator::Impl::endStream(PulledUnit & unit)
{
    streamEnded_ = false;
    needPartition_ = true;
    partitionBoundary_ = true;
    if (!changeTurn())
        endEssence(unit);
}

// The containers whose index tables end with the essence are done with; the
// index of the first of the others is left to the next pull.
void PullCreator::Impl::endEssence(PulledUnit & unit)
{
    for (auto const & handler : handlers.streams())
        if (!handler->indexesAfterEndOfEssence())
            writeLastIndex(unit, *handler);

    auto const indexed = handlers.streams();
    for (std::size_t i = 1; i < indexed.size(); ++i)
        writeLastIndex(unit, *indexed[i]);

    closingPhase_ = true;
    handlers.toFirst();
    status = bodyOrFooter();
}

void PullCreator::Impl::writeLastIndex(PulledUnit & unit, BaseSourceHandler & handler)
{
    if (handler.indexByteCount(true) != 0)
        writeIndexPartition(unit, handler, true);
    handlers.remove(handler.bodySID());
}

void PullCreator::Impl::pullFooter(PulledUnit & unit)
{
    BasePartitionWriter & writer = handlers.withoutStream().writer();
    writer.kagSize(settings.nonEssenceKAGSize);
    unit.opened(unit.start, writer.writeFooter(*metadata, unit.status, unit.start, unit.previousPartition,
                                               settings.footerHasMetadata, true, unit.chain));
    if (settings.writeRIP)
        writeRIP(unit);
    status = PullDone;
}

void PullCreator::Impl::writeRIP(PulledUnit & unit) const
{
    Packs::RandomIndexPack rip(rip_);
    for (PulledUnit::Opened const & partition : unit.partitions)
        rip.add(partition.written.first->bodySID(), partition.offset);

    DataIO::ChainDataSinkAdapter sink(unit.chain, DataIO::Memory::MemoryBlockFactory::instance(), RIP_BLOCK_SIZE);
    rip.serialize(sink);
}

PullCreator::PullCreator(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, UInt64 metadataSpareSpace,
                         UInt64 metadataMaximumSpace, UInt64 runInSize) :
    impl_(new Impl(std::move(metadata)))
{
    impl_->settings.runInSize = runInSize;
    impl_->settings.metadataSpareSpace = metadataSpareSpace;
    impl_->settings.metadataMaximumSpace = metadataMaximumSpace;
    impl_->tellMetadataSpace();
}

PullCreator::~PullCreator()
{
    delete impl_;
}

void PullCreator::metadataSpareSpace(UInt64 bytes)
{
    impl_->settings.metadataSpareSpace = bytes;
    impl_->tellMetadataSpace();
}

void PullCreator::metadataMaximumSpace(UInt64 bytes)
{
    impl_->settings.metadataMaximumSpace = bytes;
    impl_->tellMetadataSpace();
}

void PullCreator::writeRIP(bool writeRIP)
{
    impl_->settings.writeRIP = writeRIP;
}

void PullCreator::footerHasMetadata(bool footerHasMetadata)
{
    impl_->settings.footerHasMetadata = footerHasMetadata;
}

void PullCreator::metadataRepetitionPeriod(unsigned int partitions)
{
    impl_->settings.metadataRepetitionPeriod = partitions;
    impl_->repetitionCountdown = partitions;
}

void PullCreator::masterEditUnitsPerPartition(unsigned int editUnits)
{
    impl_->settings.masterEditUnitsPerPartition = editUnits;
}

void PullCreator::masterSecondsPerPartition(Templates::Rational<Int64> const & seconds)
{
    impl_->settings.masterSecondsPerPartition = seconds;
}

void PullCreator::partitionMultiplexPeriod(Templates::Rational<Int64> const & seconds)
{
    impl_->settings.partitionMultiplexPeriod = seconds;
}

void PullCreator::headerPartitionHasEssence(bool headerPartitionHasEssence)
{
    impl_->settings.headerPartitionHasEssence = headerPartitionHasEssence;
}

void PullCreator::runInKagAligned(bool runInKagAligned)
{
    impl_->settings.runInKagAligned = runInKagAligned;
}

PullCreator::SerializationOrder PullCreator::serializationOrder() const
{
    return impl_->settings.serializationOrder;
}

void PullCreator::serializationOrder(SerializationOrder order)
{
    impl_->settings.serializationOrder = order;
    for (auto const & entry : impl_->handlers.all())
        entry.second->serializationOrder(order);
}

void PullCreator::nonEssenceKAGSize(unsigned int kagSize)
{
    impl_->handlers.withoutStream().kagSize(kagSize);
    impl_->settings.nonEssenceKAGSize = kagSize;
}

void PullCreator::footerKagAlignSize(unsigned int kagSize)
{
    impl_->settings.nonEssenceKAGSize = kagSize;
}

void PullCreator::useFirstContainerForIndexTableGenerationOnHeader(bool use)
{
    impl_->settings.useFirstContainerForIndexTableGenerationOnHeader = use;
}

void PullCreator::createSeparatePartitionsForIndex(bool separate)
{
    impl_->settings.createSeparatePartitionsForIndex = separate;
}

void PullCreator::sidGenerator(Templates::auto_ptr<AbstractSIDGenerator> sidGenerator)
{
    VANTRY_CHECK(sidGenerator.get () != 0, InvalidValue, "SID Generator must be valid object!");
    impl_->sidGenerator = std::move(sidGenerator);
}

unsigned int PullCreator::addEssenceContainer(Templates::auto_ptr<GenericContainer::Source> source,
                                              IndexTableGeneration duringEssence, IndexTableGeneration afterEssence,
                                              bool externalEssence, IndexTableSegmentType segmentType)
{
    if (externalEssence)
    {
        impl_->externalSources.push_back(Templates::SharedPtr<GenericContainer::Source>(std::move(source)));
        return 0;
    }

    unsigned int const bodySID = impl_->nextBodySID();
    unsigned int const currentIndexSID = impl_->sidGenerator->indexSID(impl_->containers + 1);
    VANTRY_CHECK(currentIndexSID > 0, InvalidValue, "IndexSID value must be greater than 0!");

    Templates::auto_ptr<PartitionWriter> writer(new PartitionWriter(std::move(source), bodySID, currentIndexSID,
                                                                    duringEssence, afterEssence, false, segmentType));
    impl_->add(bodySID, Templates::auto_ptr<BaseSourceHandler>(new GenericContainerSourceHandler(std::move(writer))));
    return bodySID;
}

unsigned int PullCreator::addGenericStream(Templates::auto_ptr<GenericStream::Source> source, unsigned int kagSize)
{
    unsigned int const bodySID = impl_->nextBodySID();
    Templates::auto_ptr<GenericStreamPartitionWriter> writer(
        new GenericStreamPartitionWriter(std::move(source), bodySID));
    writer->kagSize(kagSize);
    impl_->add(bodySID, Templates::auto_ptr<BaseSourceHandler>(new GenericStreamSourceHandler(std::move(writer))));
    return bodySID;
}

Templates::map<unsigned int, KLVSource *> PullCreator::creatorSources() const
{
    Templates::map<unsigned int, KLVSource *> sources;
    for (auto const & handler : impl_->handlers.streams())
        sources.emplace(handler->bodySID(), handler->source());
    return sources;
}

void PullCreator::addListener(CreatorListener & listener)
{
    removeListener(listener);
    impl_->listeners.push_back(&listener);
}

void PullCreator::removeListener(CreatorListener & listener)
{
    auto & listeners = impl_->listeners;
    listeners.erase(std::remove(listeners.begin(), listeners.end(), &listener), listeners.end());
}

PullCreator::Status PullCreator::nextUnit(PartitionPack::PartitionStatus partitionStatus, DataIO::Chain & chain)
{
    PulledUnit unit = impl_->unitOf(partitionStatus);
    impl_->pull(unit);
    impl_->commit(unit);
    chain.push_back(unit.chain);
    impl_->tell(unit);
    return impl_->status;
}

PullCreator::Status PullCreator::nextUnit(bool closed, DataIO::Chain & chain)
{
    bool const verify = impl_->status == PullHeader || impl_->status == PullFooter;
    PartitionPack::PartitionStatus const partitionStatus =
        verify ? Metadata::verifyPartitionMetadataStatus(*impl_->metadata, closed)
               : (closed ? PartitionPack::CLOSED_INCOMPLETE : PartitionPack::OPEN_INCOMPLETE);
    return nextUnit(partitionStatus, chain);
}

PullCreator::Status PullCreator::status() const
{
    return impl_->status;
}

}}

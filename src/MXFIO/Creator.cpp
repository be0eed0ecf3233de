#include "MXFIO/Creator.h"

#include "DataIO/Chain.h"
#include "DataIO/ChainDataSinkAdapter.h"
#include "DataIO/ChainSinkDataAdapter.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/RandomAccessDataSink.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidPosition.h"
#include "Exceptions/InvalidValue.h"
#include "MXFIO/CreatorListener.h"
#include "MXFIO/FillHead.h"
#include "MXFIO/FutureUpdater.h"
#include "MXFIO/PatternOf.h"
#include "Metadata/PartitionMetadataUtils.h"
#include "Types/Batch.h"
#include "Utils/Fill.h"

#include <utility>

namespace Vantry { namespace MXFIO {

using Packs::PartitionPack;

namespace {

UInt64 const BLOCK_SIZE = 10240;

// Metadata that aren't there don't change.
PartitionPack::PartitionStatus statusOf(PartitionPack const & pack, PartitionPack::PartitionStatus status)
{
    if (pack.isGenericStreamsPartition())
        return PartitionPack::GENERIC_STREAM;
    return pack.headerByteCount() == 0 ? PartitionPack::CLOSED_COMPLETE : status;
}

// Fills up to `end`; false when that is behind or too near for a fill item.
bool fillUpTo(UInt64 end, DataIO::DataSink & sink)
{
    UInt64 const position = sink.absoluteOffset();
    if (position == end)
        return true;
    if (position > end || end - position < SMALLEST_FILL)
        return false;
    Utils::writeFillKLV(sink, end - position, FILL_BER_LENGTH);
    return true;
}

}

class Creator::Impl : public CreatorListener
{
public:
    Impl(Templates::SharedPtr<Metadata::PartitionMetadata> theMetadata, DataIO::DataSink & theSink) :
        metadata(std::move(theMetadata)), sink(theSink), runInSize(theSink.absoluteOffset())
    {
    }

    void partitionCreated(UInt64 offset, Templates::SharedPtr<PartitionPack> pack, UInt64 packBytes) override;
    void updaterCreated(UInt64 offset, Templates::SharedPtr<FutureUpdater> updater) override;

    bool writeStart(PackField const & field, SerializationOrder order, DataIO::DataSink & start) const;
    bool metadataFit(PartitionPack const & pack) const;
    static void seek(DataIO::RandomAccessDataSink & sink, UInt64 position);
    bool update(PackField & field, PartitionPack::PartitionStatus status, SerializationOrder order,
                Types::UniversalLabel const & pattern, DataIO::DataSink & into) const;

    Templates::SharedPtr<Metadata::PartitionMetadata> const metadata;
    DataIO::DataSink & sink;
    UInt64 const runInSize;
    UInt64 footerPartition = 0;
    PartitionPacks offsetPartitionPacksMap_;
    Templates::map<UInt64, Templates::SharedPtr<FutureUpdater>> updaters;
};

void Creator::Impl::partitionCreated(UInt64 offset, Templates::SharedPtr<PartitionPack> pack, UInt64 packBytes)
{
    footerPartition = pack->footerPartition();
    offsetPartitionPacksMap_[offset] = {Templates::SharedPtr<PartitionPack>(new PartitionPack(*pack)), packBytes};
}

void Creator::Impl::updaterCreated(UInt64 offset, Templates::SharedPtr<FutureUpdater> updater)
{
    updaters[offset] = std::move(updater);
}

// Exactly the bytes of pack and metadata as they were.
bool Creator::Impl::writeStart(PackField const & field, SerializationOrder order, DataIO::DataSink & start) const
{
    UInt64 const headerByteCount = field.pack->headerByteCount();
    field.pack->serialize(start);
    if (!fillUpTo(field.packBytes, start) || headerByteCount == 0)
        return start.absoluteOffset() == field.packBytes;

    metadata->serialize(start, true, order, true);
    return fillUpTo(field.packBytes + headerByteCount, start);
}

bool Creator::Impl::metadataFit(PartitionPack const & pack) const
{
    if (pack.headerByteCount() == 0)
        return true;
    UInt64 const size = metadata->serializedSize(true, true);
    return size + Utils::alignBytes(pack.kagSize(), size, SMALLEST_FILL) <= pack.headerByteCount();
}

bool Creator::Impl::update(PackField & field, PartitionPack::PartitionStatus status, SerializationOrder order,
                           Types::UniversalLabel const & pattern, DataIO::DataSink & into) const
{
    Templates::SharedPtr<PartitionPack> const pack(new PartitionPack(*field.pack));
    pack->key(Packs::buildPartitionPackKey(pack->partitionKind(), statusOf(*pack, status)));
    pack->footerPartition(footerPartition);
    pack->operationalPattern(pattern);
    if (!metadataFit(*pack))
        return false;

    DataIO::Chain chain;
    DataIO::ChainDataSinkAdapter start(chain, DataIO::Memory::MemoryBlockFactory::instance(), BLOCK_SIZE);
    if (!writeStart({pack, field.packBytes}, order, start))
        return false;

    DataIO::ChainSinkDataAdapter(into).write(chain);
    field.pack = pack;
    return true;
}

// Places that are known are there, unless somebody cut the file off.
void Creator::Impl::seek(DataIO::RandomAccessDataSink & sink, UInt64 position)
{
    VANTRY_CHECK(sink.seek(position) == position, InvalidPosition, "The sink ends ahead of what is to be updated");
}

Creator::Creator(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, DataIO::DataSink & sink,
                 UInt64 metadataSpareSpace, UInt64 metadataMaximumSpace) :
    PullCreator(metadata, metadataSpareSpace, metadataMaximumSpace, sink.absoluteOffset()), impl_(nullptr)
{
    Templates::auto_ptr<Impl> impl(new Impl(std::move(metadata), sink));
    addListener(*impl);
    impl_ = impl.release();
}

Creator::~Creator()
{
    delete impl_;
}

PullCreator::Status Creator::writeUnit(PartitionPack::PartitionStatus partitionStatus)
{
    DataIO::Chain unit;
    Status const status = nextUnit(partitionStatus, unit);
    DataIO::ChainSinkDataAdapter(impl_->sink).write(unit);
    return status;
}

PullCreator::Status Creator::writeUnit(bool closed)
{
    DataIO::Chain unit;
    Status const status = nextUnit(closed, unit);
    DataIO::ChainSinkDataAdapter(impl_->sink).write(unit);
    return status;
}

Creator::PartitionPacks const & Creator::partitionPacks() const
{
    return impl_->offsetPartitionPacksMap_;
}

bool Creator::updatePartition(UInt64 offset, PartitionPack::PartitionStatus status)
{
    auto const it = impl_->offsetPartitionPacksMap_.find(offset);
    VANTRY_CHECK(it != impl_ -> offsetPartitionPacksMap_.end (), InvalidValue, "Invalid partition offset");

    return impl_->update(it->second, status, serializationOrder(), it->second.pack->operationalPattern(), impl_->sink);
}

bool Creator::updatePartition(UInt64 offset, bool closed)
{
    return updatePartition(offset, Metadata::verifyPartitionMetadataStatus(*impl_->metadata, closed));
}

bool Creator::updatePartitions(DataIO::RandomAccessDataSink & sink, bool closed)
{
    PartitionPack::PartitionStatus const status = Metadata::verifyPartitionMetadataStatus(*impl_->metadata, closed);
    bool areUpdated = true;
    for (auto & [offset, field] : impl_->offsetPartitionPacksMap_)
    {
        Impl::seek(sink, impl_->runInSize + offset);
        areUpdated &= impl_->update(field, status, serializationOrder(), patternOf(*impl_->metadata), sink);
    }
    return areUpdated;
}

void Creator::finishWork(DataIO::RandomAccessDataSink & sink)
{
    for (auto const & entry : impl_->updaters)
    {
        if (!entry.second->prepare())
            continue;

        DataIO::Chain bytes;
        UInt64 position = 0;
        entry.second->patch(impl_->runInSize + entry.first, position, bytes);
        Impl::seek(sink, position);
        DataIO::ChainSinkDataAdapter(sink).write(bytes);
    }
}

}}

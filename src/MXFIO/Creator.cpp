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

    Templates::SharedPtr<PartitionPack> const pack(new PartitionPack(*it->second.pack));
    pack->key(Packs::buildPartitionPackKey(pack->partitionKind(), statusOf(*pack, status)));
    pack->footerPartition(impl_->footerPartition);
    if (!impl_->metadataFit(*pack))
        return false;

    DataIO::Chain chain;
    DataIO::ChainDataSinkAdapter start(chain, DataIO::Memory::MemoryBlockFactory::instance(), BLOCK_SIZE);
    if (!impl_->writeStart({pack, it->second.packBytes}, serializationOrder(), start))
        return false;

    DataIO::ChainSinkDataAdapter(impl_->sink).write(chain);
    it->second.pack = pack;
    return true;
}

bool Creator::updatePartition(UInt64 offset, bool closed)
{
    return updatePartition(offset, Metadata::verifyPartitionMetadataStatus(*impl_->metadata, closed));
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
        VANTRY_CHECK(sink.seek(position) == position, InvalidPosition, "The sink ends ahead of what is to be updated");
        DataIO::ChainSinkDataAdapter(sink).write(bytes);
    }
}

}}

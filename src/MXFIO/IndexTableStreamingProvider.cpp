#include "MXFIO/IndexTableStreamingProvider.h"

#include "DataIO/RandomAccessDataSource.h"
#include "DataIO/StreamingDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "MXFIO/IndexPartitionSearch.h"
#include "MXFIO/Partition.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/Reader2.h"
#include "MXFIO/SaturatingSum.h"
#include "MetaMetadata/Dictionary.h"
#include "Packs/PartitionPack.h"
#include "Platform/Clock.h"
#include "Platform/Synchronization/Mutex.h"
#include "Platform/Synchronization/ScopedLock.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace MXFIO {

using Platform::Synchronization::ScopedLock;

namespace {

UInt64 const SEARCH_LIMIT = 65536;

// How often the end of the file is looked at, and how much of it: what a
// recording may cost whoever follows it.
UInt64 const REFRESH_PERIOD_IN_MILLISECONDS = 5000;
UInt64 const MOST_NEW_BYTES = 0x50000000;

// A pack that the last look met half written is looked for again.
UInt64 const OVERLAP = 65536;

bool isFooter(Partition const & partition)
{
    return partition.partitionPack().partitionKind() == Packs::PartitionPack::FOOTER_PARTITION;
}

}

class IndexTableStreamingProvider::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Reader2 & original, IndexTableCache & cache);

    /// Looks for new partitions, when it is time to.
    void refresh();

    Platform::Synchronization::Mutex mutex;

private:
    bool isDue();
    UInt64 newBytes();
    void append(Partition * last);

    Reader2 reader_;

public:
    IndexPartitionSearch search;

private:
    unsigned int indexSID_;
    bool isFinished_ = false;
    bool wasRefreshed_ = false;
    UInt64 refreshedAt_ = 0;
    UInt64 endSeen_ = 0;
    Partition * lastSeen_ = nullptr;
};

IndexTableStreamingProvider::Impl::Impl(Reader2 & original, IndexTableCache & cache) :
    reader_(original.source(), original.dictionary(), SEARCH_LIMIT), search(reader_, cache), indexSID_(cache.indexSID())
{
    PositionKeeper const keeper(reader_.source());
    Partition const * const headerPartition = reader_.headerPartition();
    VANTRY_CHECK_TEXT(headerPartition != nullptr, "headerPartition != 0", InvalidFormat,
                      "Cannot stream MXF file without header partition!");
}

void IndexTableStreamingProvider::Impl::refresh()
{
    if (isFinished_ || !isDue())
        return;

    PositionKeeper const keeper(reader_.source());
    UInt64 const bytes = newBytes();
    Partition * const last = bytes != 0 ? reader_.lastPartition(bytes) : nullptr;
    if (last != nullptr && last != lastSeen_)
        append(last);
    isFinished_ = lastSeen_ != nullptr && isFooter(*lastSeen_) && lastSeen_->bodyAbsoluteOffset() <= endSeen_;
}

bool IndexTableStreamingProvider::Impl::isDue()
{
    UInt64 const now = Platform::monotonicMilliseconds();
    if (wasRefreshed_ && now - refreshedAt_ < REFRESH_PERIOD_IN_MILLISECONDS)
        return false;

    wasRefreshed_ = true;
    refreshedAt_ = now;
    return true;
}

// Bytes from the end in which new partitions may begin; 0 when there are none.
UInt64 IndexTableStreamingProvider::Impl::newBytes()
{
    DataIO::RandomAccessDataSource & source = reader_.source();
    if (auto * const growing = dynamic_cast<DataIO::StreamingDataSource *>(&source))
        growing->refresh();

    UInt64 const end = saturatingSum(source.absoluteOffset(), source.remaining());
    if (end <= endSeen_)
        return 0;

    UInt64 const bytes = end - endSeen_ + std::min(endSeen_, OVERLAP);
    endSeen_ = end;
    return std::min(bytes, MOST_NEW_BYTES);
}

// All index partitions from the last one seen up to this one.
void IndexTableStreamingProvider::Impl::append(Partition * last)
{
    Templates::vector<UInt64> found;
    UInt64 const known = lastSeen_ != nullptr ? lastSeen_->partitionAbsoluteOffset() : 0;
    try
    {
        Partition * partition = last;
        if (partition->partitionPack().indexSID() != indexSID_)
            partition = reader_.previousIndexPartition(partition, indexSID_);
        for (; partition != nullptr && (lastSeen_ == nullptr || partition->partitionAbsoluteOffset() > known);
             partition = reader_.previousIndexPartition(partition, indexSID_))
            found.push_back(partition->partitionPack().thisPartition());
    }
    catch (Exceptions::InvalidFormat const &)
    {
        // The chain is broken; what lies behind the break counts.
    }

    std::for_each(found.rbegin(), found.rend(), [this](UInt64 thisPartition) { search.append(thisPartition); });
    lastSeen_ = last;
}

IndexTableStreamingProvider::IndexTableStreamingProvider(Templates::SharedPtr<IndexTableCache> cache, Reader2 & reader,
                                                         unsigned int,
                                                         Templates::SharedPtr<ContentStorageProfile> profile) :
    IndexTableProviderBase(std::move(cache)), profile_(std::move(profile)), impl_(new Impl(reader, this->cache()))
{
}

IndexTableStreamingProvider::~IndexTableStreamingProvider()
{
    delete impl_;
}

Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> IndexTableStreamingProvider::segment(Int64 editUnit)
{
    ScopedLock const lock(impl_->mutex);
    return IndexTableProviderBase::segment(editUnit);
}

Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> IndexTableStreamingProvider::lastSegment()
{
    ScopedLock const lock(impl_->mutex);
    impl_->refresh();
    if (impl_->search.size() != 0)
        impl_->search.loadLast();
    return IndexTableProviderBase::lastSegment();
}

Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> IndexTableStreamingProvider::fetch(Int64 editUnit)
{
    ScopedLock const lock(impl_->mutex);
    impl_->refresh();
    return impl_->search.find(editUnit);
}

}}

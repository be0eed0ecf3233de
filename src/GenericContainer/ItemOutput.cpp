#include "GenericContainer/ItemOutput.h"

#include "GenericContainer/Demultiplexer_impl.h"
#include "Platform/Synchronization/ScopedLock.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace GenericContainer {

using Platform::Synchronization::ScopedLock;

ItemOutput::ItemOutput(Templates::SharedPtr<Demultiplexer_impl> demultiplexer, unsigned int trackNumber,
                       Platform::Synchronization::Mutex & mutex) :
    demultiplexer_(std::move(demultiplexer)), trackNumber_(trackNumber), mutex_(mutex)
{
    ScopedLock const lock(mutex_);
    demultiplexer_->join(*this, trackNumber_);
}

ItemOutput::~ItemOutput()
{
    ScopedLock const lock(mutex_);
    demultiplexer_->leave(*this);
}

// Does work under the lock once something waits here or nothing more comes.
// Where other outputs have to be read first, it is let go for that long.
template <class Work>
auto ItemOutput::whenFilled(UInt64 howMuch, Work const & work)
{
    for (;;)
    {
        UInt64 turn = 0;
        {
            ScopedLock const lock(mutex_);
            if (!cache_.empty() || demultiplexer_->read(trackNumber_, howMuch, turn))
                return work();
        }
        demultiplexer_->waitForRoom(turn);
    }
}

Templates::auto_ptr<DataIO::Slice> ItemOutput::read(UInt64 howMuch)
{
    return whenFilled(howMuch, [this] { return takeFirst(); });
}

UInt64 ItemOutput::absoluteOffset() const
{
    ScopedLock const lock(mutex_);
    return handedOut_;
}

bool ItemOutput::endOfStream() const
{
    ScopedLock const lock(mutex_);
    return cache_.empty() && (demultiplexer_->hasEnded() || hasEnded_);
}

UInt64 ItemOutput::skip(UInt64 howMuch)
{
    UInt64 left = howMuch;
    while (left > 0)
    {
        UInt64 const dropped = whenFilled(left, [this, left] { return drop(left); });
        if (dropped == 0)
            break;
        left -= dropped;
    }
    return howMuch - left;
}

void ItemOutput::push_data(DataIO::Chain & chain)
{
    ScopedLock const lock(mutex_);
    cachedSize_ += chain.data_size();
    cache_.push_back(chain);
}

UInt64 ItemOutput::currentCachedSize() const
{
    ScopedLock const lock(mutex_);
    return cachedSize_;
}

void ItemOutput::signalEOS()
{
    ScopedLock const lock(mutex_);
    hasEnded_ = true;
}

Templates::auto_ptr<DataIO::Slice> ItemOutput::takeFirst()
{
    if (cache_.empty())
        return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice);

    Templates::auto_ptr<DataIO::Slice> slice = cache_.erase(cache_.begin());
    handedOut(slice->size());
    return slice;
}

UInt64 ItemOutput::drop(UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, cachedSize_);
    DataIO::Chain dropped;
    cache_.chopBegin(size, dropped);
    handedOut(size);
    return size;
}

void ItemOutput::handedOut(UInt64 size)
{
    handedOut_ += size;
    cachedSize_ -= size;
    demultiplexer_->taken(cachedSize_ + size, size);
}

}}

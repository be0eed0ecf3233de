#include "KLV/PeekRecords.h"

#include "Platform/CurrentThread.h"
#include "Platform/Synchronization/ScopedLock.h"

namespace Vantry { namespace KLV {

PeekRecord & PeekRecords::ofThisThread()
{
    UInt32 const thread = Platform::currentThreadId();

    UInt64 first = firstThread_.load(std::memory_order_relaxed);
    if (first == NOBODY && firstThread_.compare_exchange_strong(first, thread, std::memory_order_relaxed))
        return first_;

    return first == thread ? first_ : ofLaterThread(thread);
}

PeekRecord & PeekRecords::ofLaterThread(UInt32 thread)
{
    Platform::Synchronization::ScopedLock lock(mutex_);
    return later_[thread];
}

}}

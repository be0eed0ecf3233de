#pragma once

#include "Platform/Export.h"
#include "Platform/Synchronization/Mutex.h"

namespace Vantry { namespace Platform { namespace Synchronization {

/// Holds a Mutex from its construction to its end.
class ScopedLock
{
public:
    explicit ScopedLock(Mutex & mutex) : mutex_(mutex) { mutex_.lock(); }
    ScopedLock(ScopedLock const &) = delete;
    ScopedLock & operator=(ScopedLock const &) = delete;
    ~ScopedLock() { mutex_.unlock(); }

private:
    Mutex & mutex_;
};

}}}

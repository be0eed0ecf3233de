#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace Platform { namespace Synchronization {

/// A lock that one thread may take several times. It is locked through
/// ScopedLock alone.
class VANTRY_EXPORT Mutex
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::BadAlloc "Failed to create a mutex".
    Mutex();
    Mutex(Mutex const &) = delete;
    Mutex & operator=(Mutex const &) = delete;
    ~Mutex();

private:
    friend class ScopedLock;

    void lock();
    void unlock();

    class Impl;
    Impl * impl_;
};

}}}

#pragma once

#include "Platform/Integers.h"
#include "Platform/Synchronization/Interlocked.h"

namespace Vantry { namespace Templates {

/// How a SharedPtr counts when its copies live on several threads.
struct LockedCounter
{
    static Int32 increment(Int32 & counter) noexcept
    {
        return Platform::Synchronization::interlockedIncrement(counter);
    }

    static Int32 decrement(Int32 & counter) noexcept
    {
        return Platform::Synchronization::interlockedDecrement(counter);
    }
};

}}

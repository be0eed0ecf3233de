#pragma once

#include "Platform/Integers.h"
#include "Platform/Synchronization/Yield.h"

namespace Vantry { namespace Platform { namespace Synchronization {

/// A lock of one word for sections of a few instructions.
///
/// Other modules of the process take the same word, so its size and the two
/// numbers in it are a contract: 0 is free, 1098733 is taken.
class SpinLock
{
public:
    /// Holds a SpinLock from its construction to its end.
    class Guard
    {
    public:
        explicit Guard(SpinLock & lock) noexcept : word_(lock.word_)
        {
            while (__atomic_exchange_n(&word_, TAKEN, __ATOMIC_ACQUIRE) != FREE)
                yield();
        }

        Guard(Guard const &) = delete;
        Guard & operator=(Guard const &) = delete;
        ~Guard() { __atomic_exchange_n(&word_, FREE, __ATOMIC_RELEASE); }

    private:
        Int32 & word_;
    };

    SpinLock() = default;
    SpinLock(SpinLock const &) = delete;
    SpinLock & operator=(SpinLock const &) = delete;

private:
    static Int32 const FREE = 0;
    static Int32 const TAKEN = 1098733;

    Int32 word_ = FREE;
};

}}}

#pragma once

namespace Vantry { namespace Platform { namespace Synchronization {

/// Adds one in one indivisible step and returns the new value.
inline int interlockedIncrement(int & value) noexcept
{
    // A new reference is made from one that is held already, so nothing has
    // to be seen by another thread yet.
    return __atomic_add_fetch(&value, 1, __ATOMIC_RELAXED);
}

/// Takes one away in one indivisible step and returns the new value. Whoever
/// meets zero sees all that other threads wrote before they let go.
inline int interlockedDecrement(int & value) noexcept
{
    return __atomic_sub_fetch(&value, 1, __ATOMIC_ACQ_REL);
}

}}}

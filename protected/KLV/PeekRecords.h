#pragma once

#include "KLV/Key.h"
#include "Platform/Integers.h"
#include "Platform/Synchronization/Mutex.h"
#include "Templates/Containers.h"

#include <atomic>
#include <optional>

namespace Vantry { namespace KLV {

/// A key that was taken from a source ahead of its packet.
struct PeekRecord
{
    std::optional<Key> key;

    /// Position of the source just behind the key.
    UInt64 position = 0;
};

/// The peek records of a reader, one for each thread that uses it.
///
/// Most readers see one thread. The first to come gets the record inside this
/// object and finds it again without a lock; later ones share a locked map.
class PeekRecords
{
public:
    /// The record of the calling thread. It stays as long as this object.
    ///
    /// \throws Exceptions::BadAlloc.
    PeekRecord & ofThisThread();

private:
    PeekRecord & ofLaterThread(UInt32 thread);

    // Wider than the number of a thread, so that none equals it.
    static constexpr UInt64 NOBODY = UInt64(1) << 32;

    std::atomic<UInt64> firstThread_{NOBODY};
    PeekRecord first_;
    Platform::Synchronization::Mutex mutex_;
    Templates::map<UInt32, PeekRecord> later_;
};

}}

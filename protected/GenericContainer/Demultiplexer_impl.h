#pragma once

#include "GenericContainer/Demultiplexer.h"
#include "KLV/Key.h"
#include "KLV/Packet.h"
#include "Platform/Synchronization/Mutex.h"
#include "Templates/auto_ptr.h"

#include <condition_variable>
#include <exception>
#include <mutex>

namespace Vantry { namespace GenericContainer {

/// Reads a container for the outputs that have joined it. They own it, and
/// leave in their end.
///
/// All calls but `waitForRoom` are made under `mutex`.
class Demultiplexer_impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Demultiplexer_impl(MXFIO::ContentStorageReader & container, UInt64 mostCached, CacheLimitHandling limitHandling);
    Demultiplexer_impl(Demultiplexer_impl const &) = delete;
    Demultiplexer_impl & operator=(Demultiplexer_impl const &) = delete;

    /// Held by all outputs while they work. It may be entered again.
    Platform::Synchronization::Mutex & mutex() noexcept { return mutex_; }

    MXFIO::ContentStorageReader & container() noexcept { return container_; }

    /// \throws Exceptions::InvalidState when the element has an output.
    void join(ItemOutput & output, unsigned int trackNumber);
    void leave(ItemOutput & output);

    /// Reads on until a track has something or the container ends, and pushes
    /// all that it meets into the outputs.
    ///
    /// \param howMuch  bytes wanted
    /// \param turn     set for `waitForRoom` when the answer is false
    /// \return false when another output has to be read first
    /// \throws as ItemOutput::read.
    bool read(unsigned int trackNumber, UInt64 howMuch, UInt64 & turn);

    /// Whether the last read met the end.
    bool hasEnded() const noexcept { return hasEnded_; }

    /// Bytes were taken from an output that had so many.
    void taken(UInt64 cachedBefore, UInt64 size);

    /// Waits, without the mutex, until there has been room since `turn`.
    void waitForRoom(UInt64 turn);

private:
    struct Member
    {
        ItemOutput * output;
        unsigned int trackNumber;
        KLV::Key key;
    };

    template <class Work>
    auto remembering(Work const & work);
    bool findBytes();
    void readPiece(UInt64 howMuch);
    UInt64 refuse();
    void makeRoom();
    KLV::Key keyOf(unsigned int trackNumber) const;
    Member const & memberFor(unsigned int trackNumber) const;
    Member const * memberWith(KLV::Key const & key) const;

    MXFIO::ContentStorageReader & container_;
    UInt64 const mostCached_;
    CacheLimitHandling const limitHandling_;
    Platform::Synchronization::Mutex mutex_;
    Templates::vector<Member> members_;

    // The packet that is being read, and whose it is; null when that has left.
    Templates::auto_ptr<KLV::Packet> packet_;
    ItemOutput * target_ = nullptr;

    bool hasEnded_ = false;
    std::exception_ptr failure_;

    // Counts how often there was room again.
    std::mutex roomMutex_;
    std::condition_variable roomMade_;
    UInt64 turn_ = 0;
};

}}

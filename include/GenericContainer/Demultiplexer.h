#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace MXFIO {
class ContentStorageReader;
}

namespace GenericContainer {

class Demultiplexer_impl;
class ItemOutput;

/// What becomes of a read while another output holds as much as it may.
enum CacheLimitHandling : int
{
    /// It throws, nothing is lost, and it goes on once the other was read: for
    /// outputs that one thread reads in turns.
    FAIL_AT_CACHE_LIMIT = 0,

    /// It waits until the other was read or has gone: for outputs that have a
    /// thread each.
    WAIT_AT_CACHE_LIMIT = 1
};

/// Takes an essence container apart in one pass: reads it on demand and gives
/// the bytes of each element to an output of its own.
///
/// Elements without an output are passed over, their values unread. System
/// items among them go to the listener of the container, if it has one.
///
/// The container goes on from where it is, so that it can be sent to an edit
/// unit first. The end of a file that grows is one for now: between reads the
/// container can be refreshed, and then they go on. While outputs are read,
/// nothing else may use it, nor its file; neither this object nor the outputs
/// belong to a thread. Outputs live on when this object has gone.
class VANTRY_EXPORT Demultiplexer
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Reads nothing yet.
    ///
    /// \param container      lent; it outlives this object and all outputs
    /// \param mostCached     bytes that may wait in an output for its consumer
    ///                       before the others can't go on; what is read at
    ///                       once comes on top, up to 1 MiB
    /// \param limitHandling  what becomes of them then
    Demultiplexer(MXFIO::ContentStorageReader & container, UInt64 mostCached, CacheLimitHandling limitHandling);
    Demultiplexer(Demultiplexer const &) = delete;
    Demultiplexer & operator=(Demultiplexer const &) = delete;
    ~Demultiplexer();

    /// Makes the output of an element; it gets what is read from now on. An
    /// element that isn't in the container, or comes later, is no failure.
    ///
    /// \param trackNumber  bytes 12 to 15 of its key
    /// \throws Exceptions::InvalidState when the element has an output.
    Templates::SharedPtr<ItemOutput> output(unsigned int trackNumber);

    /// Makes an output for each element of the first edit unit, in the order
    /// of the file.
    ///
    /// \throws Exceptions::InvalidState when one has an output already.
    Templates::vector<Templates::SharedPtr<ItemOutput>> outputs();

private:
    Templates::SharedPtr<Demultiplexer_impl> impl_;
};

}
}

#pragma once

#include "DataIO/SliceList.h"
#include "Platform/Allocation.h"
#include "Templates/Containers.h"

namespace Vantry { namespace DataIO {

/// An ordered list of slices that reads as one run of bytes and owns its
/// slices. Bytes are copied by `makeSlice` alone, and only where a range
/// crosses from one block to another.
///
/// Positions and sizes are in bytes from the start of the chain. Not for two
/// threads at once.
class VANTRY_EXPORT Chain : public SliceList
{
public:
    VANTRY_CLASS_ALLOCATION

    Chain() noexcept;
    Chain(Chain const &) = delete;
    Chain & operator=(Chain const &) = delete;
    ~Chain();

    /// Deletes all slices.
    void clear() noexcept;

    /// Bytes of all slices, added up one by one.
    UInt64 data_size() const noexcept;
    UInt64 slice_count() const noexcept;

    /// Puts the slice at the front as it is, an empty one too.
    void push_front(Templates::auto_ptr<Slice> slice);

    /// Appends the slice. An empty one is dropped, and one that continues the
    /// last is merged into it.
    void push_back(Templates::auto_ptr<Slice> slice);

    /// Takes all slices of `chain` over in constant time, nothing merged.
    void push_front(Chain & chain) noexcept;
    void push_back(Chain & chain) noexcept;

    /// Unlinks a slice and hands it to the caller.
    Templates::auto_ptr<Slice> erase(iterator position);

    /// The bytes of a range as one slice, short when the chain ends before
    /// the range. Within one slice nothing is copied, otherwise they go into
    /// a block of the first slice's kind.
    ///
    /// \throws Exceptions::BadAlloc.
    Templates::auto_ptr<Slice> makeSlice(UInt64 offset, UInt64 size) const;

    /// Moves the first `howMuch` bytes, or all there are, to the back of
    /// `destination`.
    void chopBegin(UInt64 howMuch, Chain & destination);

    /// Moves the last `howMuch` bytes, or all there are, to the front of
    /// `destination`, nothing merged.
    void chopEnd(UInt64 howMuch, Chain & destination);

private:
    using Place = Templates::pair<const_iterator, UInt64>;

    Place findBase(UInt64 position) const noexcept;
    static Templates::auto_ptr<Slice> makeSliceFromSingleSlice(Slice const & slice, UInt64 begin, UInt64 end);
    Templates::auto_ptr<Slice> makeSliceFromSeveralSlices(Place base, Place last) const;
};

}}

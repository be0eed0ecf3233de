#pragma once

#include "DataIO/Slice.h"
#include "DataIO/SliceIterator.h"

namespace Vantry { namespace DataIO {

/// A ring of slices that it links but doesn't own. The list itself is the
/// element behind the last.
class VANTRY_EXPORT SliceList : public Slice
{
public:
    using iterator = SliceIterator<Slice *, Slice &, Slice>;
    using const_iterator = SliceIterator<Slice const *, Slice const &, Slice>;

    SliceList() noexcept;
    SliceList(SliceList const &) = delete;
    SliceList & operator=(SliceList const &) = delete;
    ~SliceList();

    iterator begin() noexcept { return iterator(next()); }
    const_iterator begin() const noexcept { return const_iterator(next()); }
    iterator end() noexcept { return iterator(this); }
    const_iterator end() const noexcept { return const_iterator(this); }

    bool empty() const noexcept { return next() == this; }

    /// How many slices there are, counted one by one.
    UInt64 size() const noexcept;

    /// Forgets the slices, which keep their links.
    void clear() noexcept;

    void push_front(Slice * slice) noexcept;
    void push_back(Slice * slice) noexcept;

    /// Links `slice` before `position` and returns where it is.
    iterator insert(iterator position, Slice * slice) noexcept;

    /// Unlinks a slice and returns the one that followed. The slice lives on
    /// with its old links.
    iterator erase(iterator position) noexcept;

    /// Links all of `from` before `position` in constant time; `from` is
    /// empty afterwards.
    void move(iterator position, SliceList & from) noexcept;
};

}}

#pragma once

#include <cstddef>
#include <iterator>

namespace Vantry { namespace DataIO {

/// Steps through the slices of a list, forward.
template <class Pointer, class Reference, class T>
class SliceIterator
{
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = Pointer;
    using reference = Reference;

    explicit SliceIterator(Pointer slice = nullptr) noexcept : slice_(slice) {}

    /// From an iterator that may change its element to one that may not.
    template <class OtherPointer, class OtherReference>
    SliceIterator(SliceIterator<OtherPointer, OtherReference, T> const & other) noexcept : slice_(other.slice())
    {
    }

    Reference operator*() const noexcept { return *slice_; }
    Pointer operator->() const noexcept { return slice_; }
    Pointer slice() const noexcept { return slice_; }

    SliceIterator & operator++() noexcept
    {
        slice_ = slice_->next();
        return *this;
    }

    SliceIterator operator++(int) noexcept
    {
        SliceIterator const before = *this;
        ++*this;
        return before;
    }

    bool operator==(SliceIterator const & other) const noexcept { return slice_ == other.slice_; }
    bool operator!=(SliceIterator const & other) const noexcept { return slice_ != other.slice_; }

private:
    Pointer slice_;
};

}}

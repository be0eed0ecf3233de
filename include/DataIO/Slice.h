#pragma once

#include "DataIO/Block.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

#include <cstddef>

namespace Vantry { namespace DataIO {

/// A run of bytes in a block, of which it holds one reference. Slices are
/// what moves through the library: cutting, copying and joining them copies
/// no byte.
///
/// Arguments are not checked. A slice belongs to one thread at a time; slices
/// of one block may live on several.
class VANTRY_EXPORT Slice
{
public:
    /// An empty slice of a block that holds nothing.
    Slice() noexcept;

    /// `size` bytes of `block` from `offset` on. Takes a reference of its own.
    Slice(Block * block, UInt64 offset, UInt64 size);

    /// The same run, not linked.
    Slice(Slice const & other);
    Slice & operator=(Slice const & other);
    ~Slice();

    static void * operator new(std::size_t size);
    static void * operator new(std::size_t, void * place) noexcept { return place; }
    static void operator delete(void * pointer, std::size_t size) noexcept;
    static void operator delete(void *, void *) noexcept {}

    unsigned char const * begin() const noexcept { return data_ + offset_; }
    unsigned char const * end() const noexcept { return data_ + offset_ + size_; }
    UInt64 size() const noexcept { return size_; }
    Block * block() const noexcept { return block_; }

    Slice * next() const noexcept { return next_; }
    void next(Slice * slice) noexcept { next_ = slice; }
    Slice * previous() const noexcept { return previous_; }
    void previous(Slice * slice) noexcept { previous_ = slice; }

    /// Drops `n` bytes, at most `size()`, from the start.
    void cropBegin(UInt64 n) noexcept
    {
        offset_ += n;
        size_ -= n;
    }

    /// Drops `n` bytes, at most `size()`, from the end.
    void cropEnd(UInt64 n) noexcept { size_ -= n; }

    /// Grows over `other` if that lies in the same block right behind this
    /// one, and tells so. `other` stays as it was.
    bool merge(Slice const & other) noexcept
    {
        if (block_ != other.block_ || offset_ + size_ != other.offset_)
            return false;
        size_ += other.size_;
        return true;
    }

    /// Cuts before the byte that `at` points to, which lies in this slice or
    /// at its end, and returns what follows.
    Templates::auto_ptr<Slice> splice(unsigned char const * at);

private:
    Block * block_;
    UInt64 offset_;
    UInt64 size_;
    unsigned char const * data_;
    Slice * next_;
    Slice * previous_;
};

}}

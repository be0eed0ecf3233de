#pragma once

#include "DataIO/Chain.h"

#include <algorithm>

namespace Vantry { namespace DataIO {

/// A chain that is read from its front and knows its size without counting.
class ByteQueue
{
public:
    ByteQueue() = default;
    ByteQueue(ByteQueue const &) = delete;
    ByteQueue & operator=(ByteQueue const &) = delete;

    bool empty() const noexcept { return chain_.empty(); }
    UInt64 size() const noexcept { return size_; }

    void push_back(Templates::auto_ptr<Slice> slice)
    {
        size_ += slice->size();
        chain_.push_back(slice);
    }

    /// An empty slice is dropped.
    void push_front(Templates::auto_ptr<Slice> slice)
    {
        if (slice->size() == 0)
            return;
        size_ += slice->size();
        chain_.push_front(slice);
    }

    void push_front(Chain & chain) noexcept
    {
        size_ += chain.data_size();
        chain_.push_front(chain);
    }

    /// The first slice of a queue that isn't empty.
    Templates::auto_ptr<Slice> takeFirst()
    {
        Templates::auto_ptr<Slice> slice = chain_.erase(chain_.begin());
        size_ -= slice->size();
        return slice;
    }

    /// Drops up to `howMuch` bytes and returns how many there were.
    UInt64 drop(UInt64 howMuch)
    {
        UInt64 const dropped = std::min(howMuch, size_);
        for (UInt64 rest = dropped; rest > 0;)
        {
            Slice & first = *chain_.begin();
            UInt64 const part = std::min(rest, first.size());
            if (part < first.size())
                first.cropBegin(part);
            else
                chain_.erase(chain_.begin());
            rest -= part;
        }
        size_ -= dropped;
        return dropped;
    }

private:
    Chain chain_;
    UInt64 size_ = 0;
};

}}

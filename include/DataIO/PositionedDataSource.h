#pragma once

#include "DataIO/RandomAccessDataSource.h"

namespace Vantry { namespace DataIO {

/// A source of known size in which moving is no more than to note the place.
/// Reading is left to those that derive from it.
class VANTRY_EXPORT PositionedDataSource : public RandomAccessDataSource
{
public:
    ~PositionedDataSource() override;

    UInt64 absoluteOffset() const override { return position_; }
    UInt64 remaining() const override { return size_ - position_; }
    bool endOfStream() const override { return position_ == size_; }
    UInt64 skip(UInt64 howMuch) override;
    UInt64 seek(UInt64 position) override;
    void discard() override { position_ = size_; }

protected:
    /// \param size      bytes from the start of the stream to its end
    /// \param position  where the next byte comes from, `size` at most
    explicit PositionedDataSource(UInt64 size, UInt64 position = 0) : size_(size), position_(position) {}

    /// Sets the size; the position is the end at most.
    void resize(UInt64 size);

    UInt64 size() const { return size_; }
    UInt64 position() const { return position_; }

    /// Moves over bytes that were read, as many as remain at most.
    void advance(UInt64 size) { position_ += size; }

private:
    UInt64 size_;
    UInt64 position_;
};

}}

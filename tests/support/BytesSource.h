#pragma once

#include "DataIO/RandomAccessDataSource.h"
#include "support/Bytes.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Vantry { namespace Tests {

/// A source over bytes that gives no more than so many at a read, as a pipe
/// does, and counts what it was asked for.
class BytesSource : public DataIO::RandomAccessDataSource
{
public:
    explicit BytesSource(Bytes bytes, UInt64 mostPerRead = std::numeric_limits<UInt64>::max()) :
        bytes_(std::move(bytes)), mostPerRead_(mostPerRead)
    {
    }

    UInt64 absoluteOffset() const override { return offset_; }
    bool endOfStream() const override { return remaining() == 0; }
    UInt64 remaining() const override { return bytes_.size() - offset_; }
    void discard() override { skip(remaining()); }

    UInt64 read(unsigned char * destination, UInt64 howMuch) override
    {
        UInt64 const size = std::min({howMuch, remaining(), mostPerRead_});
        std::copy_n(bytes_.data() + offset_, size, destination);
        offset_ += size;
        bytesRead_ += size;
        return size;
    }

    UInt64 skip(UInt64 howMuch) override
    {
        UInt64 const size = std::min(howMuch, remaining());
        offset_ += size;
        return size;
    }

    UInt64 seek(UInt64 position) override { return offset_ = std::min<UInt64>(position, bytes_.size()); }

    /// Adds bytes at the end.
    void append(Bytes const & bytes) { bytes_ += bytes; }

    /// Bytes that were read rather than passed over.
    UInt64 bytesRead() const { return bytesRead_; }

private:
    Bytes bytes_;
    UInt64 mostPerRead_;
    UInt64 offset_ = 0;
    UInt64 bytesRead_ = 0;
};

}}

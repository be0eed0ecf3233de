#pragma once

#include "DataIO/PositionedDataSource.h"
#include "support/Bytes.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Vantry { namespace Tests {

/// A source over bytes that gives no more than so many at a read, as a pipe
/// does, and counts what it was asked for.
class BytesSource : public DataIO::PositionedDataSource
{
public:
    explicit BytesSource(Bytes bytes, UInt64 mostPerRead = std::numeric_limits<UInt64>::max()) :
        PositionedDataSource(bytes.size()), bytes_(std::move(bytes)), mostPerRead_(mostPerRead)
    {
    }

    UInt64 read(unsigned char * destination, UInt64 howMuch) override
    {
        UInt64 const size = std::min({howMuch, remaining(), mostPerRead_});
        std::copy_n(bytes_.data() + position(), size, destination);
        advance(size);
        bytesRead_ += size;
        return size;
    }

    /// Adds bytes at the end.
    void append(Bytes const & bytes)
    {
        bytes_ += bytes;
        resize(bytes_.size());
    }

    /// Bytes that were read rather than passed over.
    UInt64 bytesRead() const { return bytesRead_; }

private:
    Bytes bytes_;
    UInt64 mostPerRead_;
    UInt64 bytesRead_ = 0;
};

}}

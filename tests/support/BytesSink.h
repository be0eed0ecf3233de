#pragma once

#include "DataIO/DataSink.h"
#include "support/Bytes.h"

#include <algorithm>

namespace Vantry { namespace Tests {

/// A sink that keeps what is written, behind bytes that came before.
class BytesSink : public DataIO::DataSink
{
public:
    explicit BytesSink(UInt64 bytesBefore = 0) : bytesBefore_(bytesBefore) {}

    void write(unsigned char const * source, UInt64 howMuch) override
    {
        bytes_.insert(bytes_.end(), source, source + howMuch);
        largestWrite_ = std::max(largestWrite_, howMuch);
    }

    UInt64 absoluteOffset() const override { return bytesBefore_ + bytes_.size(); }

    Bytes const & bytes() const { return bytes_; }
    UInt64 largestWrite() const { return largestWrite_; }

private:
    UInt64 bytesBefore_;
    Bytes bytes_;
    UInt64 largestWrite_ = 0;
};

/// The bytes that an object writes of itself.
template <class Object>
Bytes serialized(Object const & object)
{
    BytesSink sink;
    object.serialize(sink);
    return sink.bytes();
}

}}

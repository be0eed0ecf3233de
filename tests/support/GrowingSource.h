#pragma once

#include "DataIO/StreamingDataSource.h"
#include "support/BytesSource.h"

namespace Vantry { namespace Tests {

/// A source whose bytes come bit by bit, and are there from the next refresh
/// on.
class GrowingSource : public BytesSource, public DataIO::StreamingDataSource
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit GrowingSource(Bytes bytes, UInt64 written = 0) : BytesSource({}), all_(std::move(bytes))
    {
        writeUpTo(written);
        refresh();
    }

    /// Has so many of all the bytes written.
    void writeUpTo(UInt64 size) { written_ = std::min<UInt64>(size, all_.size()); }

    UInt64 refresh() override
    {
        UInt64 const size = absoluteOffset() + remaining();
        append(Bytes(all_.data() + size, all_.data() + written_));
        ++refreshes_;
        return written_;
    }

    /// How often it was asked to look again.
    unsigned int refreshes() const { return refreshes_; }

private:
    Bytes all_;
    UInt64 written_ = 0;
    unsigned int refreshes_ = 0;
};

}}

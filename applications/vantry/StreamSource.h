#pragma once

#include "DataIO/DataSource.h"
#include "Input.h"
#include "Platform/Integers.h"

#include <cstdio>
#include <memory>
#include <vector>

namespace Vantry { namespace Application {

/// Reads a stream that can't seek, such as a pipe. What is skipped is read
/// and thrown away.
class StreamSource : public DataIO::DataSource
{
public:
    /// Takes the stream over and closes it.
    explicit StreamSource(std::FILE * stream);

    UInt64 absoluteOffset() const override { return bufferOffset_ + next_; }
    bool endOfStream() const override;
    UInt64 read(unsigned char * destination, UInt64 howMuch) override;
    UInt64 skip(UInt64 howMuch) override;

    /// Goes back by some of the bytes just read, at most
    /// Input::LONGEST_STEP_BACK.
    void stepBack(UInt64 howMuch) { next_ -= howMuch; }

private:
    /// Bytes of the buffer that are still to be delivered.
    UInt64 held() const { return end_ - next_; }

    /// Fills the buffer when all of it has been delivered; false at the end
    /// of the stream.
    bool fill() const;

    struct Close
    {
        void operator()(std::FILE * stream) const { std::fclose(stream); }
    };

    std::unique_ptr<std::FILE, Close> stream_;

    // Whether a stream has ended shows only in reading on, also where nobody
    // but endOfStream asks.
    mutable std::vector<unsigned char> buffer_;
    mutable UInt64 bufferOffset_; // position of the buffer's first byte
    mutable UInt64 next_;         // the next byte to deliver
    mutable UInt64 end_;          // behind the last byte read
};

}}

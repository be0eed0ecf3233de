#pragma once

#include "Platform/Integers.h"

#include <cstdio>
#include <fmt/format.h>

namespace Vantry { namespace Application {

/// Whoever read the result has gone, which ends the program quietly.
class ReaderGone
{
};

/// The result of a command on its way to standard output.
///
/// Text is composed in `buffer`, which is written out when it is large enough
/// and by `flush`. What is still held at the end of the object is lost.
class Output
{
public:
    explicit Output(std::FILE * stream);
    Output(Output const &) = delete;
    Output & operator=(Output const &) = delete;

    /// Where to append text.
    fmt::memory_buffer & buffer() noexcept { return buffer_; }

    /// To be called between pieces of text: writes the buffer out when there
    /// is enough in it.
    ///
    /// \throws ReaderGone
    /// \throws Failure when the text can't be written.
    void pieceDone()
    {
        if (buffer_.size() >= FLUSH_SIZE)
            flush();
    }

    /// Writes out what the buffer holds.
    ///
    /// \throws ReaderGone
    /// \throws Failure when the text can't be written.
    void flush();

    /// Whether there has been any text.
    bool anyText() const noexcept { return written_ || buffer_.size() > 0; }

private:
    static constexpr std::size_t FLUSH_SIZE = 65536;

    std::FILE * stream_;
    fmt::memory_buffer buffer_;
    bool written_;
};

}}

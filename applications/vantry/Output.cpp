#include "Output.h"

#include "Failure.h"

#include <cerrno>
#include <cstring>

namespace Vantry { namespace Application {

Output::Output(std::FILE * stream) : stream_(stream), written_(false)
{
    // This is the buffer: another one behind it would only copy.
    std::setvbuf(stream_, nullptr, _IONBF, 0);
}

void Output::flush()
{
    std::size_t const size = buffer_.size();
    if (size == 0)
        return;

    std::size_t const done = std::fwrite(buffer_.data(), 1, size, stream_);
    int const error = errno;
    buffer_.clear();
    if (done < size)
    {
        if (error == EPIPE)
            throw ReaderGone();
        throw Failure(ExitStatus::FAILED, "standard output", std::strerror(error));
    }
    written_ = true;
}

}}

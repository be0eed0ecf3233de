#include "StreamSource.h"

#include "Exceptions/IOError.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

namespace Vantry { namespace Application {

namespace {

std::size_t const BUFFER_SIZE = 262144;

}

StreamSource::StreamSource(std::FILE * stream) :
    stream_(stream), buffer_(Input::LONGEST_STEP_BACK + BUFFER_SIZE), bufferOffset_(0), next_(0), end_(0)
{
    std::setvbuf(stream, nullptr, _IONBF, 0);
}

bool StreamSource::endOfStream() const
{
    return !fill();
}

UInt64 StreamSource::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 done = 0;
    while (done < howMuch && fill())
    {
        UInt64 const piece = std::min(howMuch - done, held());
        std::memcpy(destination + done, buffer_.data() + next_, piece);
        next_ += piece;
        done += piece;
    }
    return done;
}

UInt64 StreamSource::skip(UInt64 howMuch)
{
    UInt64 done = 0;
    while (done < howMuch && fill())
    {
        UInt64 const piece = std::min(howMuch - done, held());
        next_ += piece;
        done += piece;
    }
    return done;
}

bool StreamSource::fill() const
{
    if (held() > 0)
        return true;

    UInt64 const kept = std::min(Input::LONGEST_STEP_BACK, end_);
    std::memmove(buffer_.data(), buffer_.data() + end_ - kept, kept);
    bufferOffset_ += end_ - kept;
    next_ = end_ = kept;

    UInt64 const got = std::fread(buffer_.data() + end_, 1, buffer_.size() - end_, stream_.get());
    if (got == 0 && std::ferror(stream_.get()))
        throw Exceptions::IOError((std::string("Error reading from stream. ") + std::strerror(errno)).c_str(), __FILE__,
                                  __LINE__);

    end_ += got;
    return got > 0;
}

}}

#include "DataIO/File/ReadableFile.h"

#include "Exceptions/Check.h"
#include "Exceptions/IOError.h"
#include "Platform/PositionalRead.h"
#include "Platform/WideLiteral.h"

namespace Vantry { namespace DataIO { namespace File {

namespace {

// Less is not worth a call to the system.
UInt64 const SMALLEST_WINDOW = 4096;

// A window of which less than this part was reached is too large.
UInt64 const SCARCELY_USED = 8;

}

ReadableFile::ReadableFile(unsigned short const * name, int bufferSize) :
    FileImpl(name, Platform::wide(u"rb"), bufferSize),
    windowStart_(0),
    windowSize_(0),
    reached_(0),
    wantedSize_(bufferSize_)
{
}

UInt64 ReadableFile::readBeyondWindow(unsigned char * destination, UInt64 howMuch)
{
    UInt64 done = takeFromWindow(position_, destination, howMuch);
    UInt64 const rest = howMuch - done;

    if (rest >= bufferSize_)
        done += readFile(position_ + done, destination + done, rest);
    else if (rest != 0)
    {
        moveWindow(position_ + done, rest);
        done += takeFromWindow(position_ + done, destination + done, rest);
    }

    position_ += done;
    return done;
}

UInt64 ReadableFile::takeFromWindow(UInt64 position, unsigned char * destination, UInt64 howMuch) noexcept
{
    UInt64 const place = position - windowStart_;
    if (place >= windowSize_)
        return 0;

    UInt64 const size = std::min(howMuch, windowSize_ - place);
    std::copy_n(buffer_.data() + place, size, destination);
    reached_ = std::max(reached_, place + size);
    return size;
}

void ReadableFile::moveWindow(UInt64 position, UInt64 atLeast)
{
    adaptWindow();
    UInt64 const size = std::min(std::max(wantedSize_, atLeast), size_ - position);
    if (buffer_.size() < size)
        buffer_.resize(size);

    windowSize_ = 0;
    windowSize_ = readFile(position, buffer_.data(), size);
    windowStart_ = position;
    reached_ = 0;
}

// A walk over large packets wants a few bytes here and there, and filling the
// whole buffer for them would cost more than all the rest.
void ReadableFile::adaptWindow() noexcept
{
    if (windowSize_ == 0)
        return;

    if (reached_ < windowSize_ / SCARCELY_USED)
        wantedSize_ = std::max(wantedSize_ / 2, std::min<UInt64>(SMALLEST_WINDOW, bufferSize_));
    else
        wantedSize_ = std::min<UInt64>(wantedSize_ * 2, bufferSize_);
}

UInt64 ReadableFile::readFile(UInt64 position, unsigned char * destination, UInt64 howMuch)
{
    Int64 const got = Platform::readAt(file_.get(), position, destination, howMuch);
    if (got < 0)
        VANTRY_FAIL(IOError, systemMessage("Error reading from file. "));
    return static_cast<UInt64>(got);
}

}}}

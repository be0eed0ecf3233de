#include "DataIO/File/ReadableFile.h"

#include "Exceptions/Check.h"
#include "Exceptions/IOError.h"
#include "Platform/PositionalRead.h"
#include "Platform/WideLiteral.h"

namespace Vantry { namespace DataIO { namespace File {

namespace {

// Less is not worth a call to the system.
UInt64 const SMALLEST_WINDOW = 4096;

}

ReadableFile::ReadableFile(unsigned short const * name, int bufferSize) :
    FileImpl(name, Platform::wide(u"rb"), bufferSize),
    windowStart_(0),
    windowSize_(0),
    reached_(0),
    readAhead_(0),
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

    // The file has shrunk: who reads on to the end must come to one, and the
    // window may reach beyond it.
    if (done < howMuch)
    {
        size_ = position_;
        windowSize_ = 0;
    }
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
    adaptWindow(position);
    UInt64 const size = std::min(std::max(wantedSize_, atLeast), size_ - position);
    if (buffer_.size() < size)
        buffer_.resize(size);

    windowSize_ = 0;
    windowSize_ = readFile(position, buffer_.data(), size);
    windowStart_ = position;
    reached_ = 0;
}

// A walk over large packets wants a few bytes here and there, and a read of edit
// units in any order some more: a window elsewhere is as large as what was read
// in one go before, and a little over, but no less than half of the last. One that
// goes on is larger.
void ReadableFile::adaptWindow(UInt64 position) noexcept
{
    if (windowSize_ == 0)
        return;

    bool const goesOn = position == windowStart_ + windowSize_;
    UInt64 const run = readAhead_ + (goesOn ? windowSize_ : reached_);
    UInt64 const wanted = goesOn ? wantedSize_ * 2 : std::max({run + run / 8, wantedSize_ / 2, SMALLEST_WINDOW});
    wantedSize_ = std::min<UInt64>(wanted, bufferSize_);
    readAhead_ = goesOn ? run : 0;
}

UInt64 ReadableFile::readFile(UInt64 position, unsigned char * destination, UInt64 howMuch)
{
    Int64 const got = Platform::readAt(file_.get(), position, destination, howMuch);
    if (got < 0)
        VANTRY_FAIL(IOError, systemMessage("Error reading from file. "));
    return static_cast<UInt64>(got);
}

}}}

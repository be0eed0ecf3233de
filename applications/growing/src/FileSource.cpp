#include "Growing/FileSource.h"

#include "Exceptions/IOError.h"
#include "Platform/Files.h"
#include "Platform/SystemError.h"
#include "Platform/Text.h"
#include "Platform/WideLiteral.h"

#include <algorithm>

namespace Vantry { namespace Growing {

namespace {

[[noreturn]] void fail(char const * lead)
{
    Templates::wstring const reason = Platform::lastErrorMessage();
    throw Exceptions::IOError((Platform::stringToWstring(lead) + reason).c_str(), __FILE__, __LINE__);
}

}

FileSource::FileSource(unsigned short const * name, UInt64 bufferSize) :
    file_(Platform::fopen(name, Platform::wide(u"rb"))),
    size_(0),
    position_(0),
    buffer_(bufferSize),
    bufferStart_(0),
    bytesInBuffer_(0)
{
    if (!file_)
        fail("Error opening file. ");

    // There is a buffer already.
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
    refresh();
}

UInt64 FileSource::refresh()
{
    Int64 const size = Platform::getFileSize(file_.get());
    if (size < 0)
        fail("Error getting file length. ");

    if (static_cast<UInt64>(size) != size_)
        bytesInBuffer_ = 0;
    size_ = static_cast<UInt64>(size);
    position_ = std::min(position_, size_);
    return size_;
}

UInt64 FileSource::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 const wanted = std::min(howMuch, remaining());
    UInt64 done = 0;
    while (done < wanted)
    {
        UInt64 const piece = readPiece(position_ + done, destination + done, wanted - done);
        if (piece == 0)
            break;
        done += piece;
    }
    position_ += done;
    return done;
}

UInt64 FileSource::skip(UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, remaining());
    position_ += size;
    return size;
}

UInt64 FileSource::seek(UInt64 position)
{
    return position_ = std::min(position, size_);
}

UInt64 FileSource::readPiece(UInt64 position, unsigned char * destination, UInt64 howMuch)
{
    if (!isInBuffer(position))
    {
        if (howMuch >= buffer_.size())
            return readFile(position, destination, howMuch);

        bytesInBuffer_ = 0;
        bytesInBuffer_ = readFile(position, buffer_.data(), std::min<UInt64>(buffer_.size(), size_ - position));
        bufferStart_ = position;
    }

    UInt64 const place = position - bufferStart_;
    UInt64 const size = std::min(howMuch, bytesInBuffer_ - place);
    std::copy_n(buffer_.data() + place, size, destination);
    return size;
}

UInt64 FileSource::readFile(UInt64 position, unsigned char * destination, UInt64 howMuch)
{
    bool const isThere = Platform::fileSeek(file_.get(), static_cast<Int64>(position));
    UInt64 const got = isThere ? std::fread(destination, 1, howMuch, file_.get()) : 0;
    if (!isThere || std::ferror(file_.get()) != 0)
    {
        std::clearerr(file_.get());
        fail("Error reading from file. ");
    }
    return got;
}

}}

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
    PositionedDataSource(0),
    file_(Platform::fopen(name, Platform::wide(u"rb"))),
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
    Int64 const bytes = Platform::getFileSize(file_.get());
    if (bytes < 0)
        fail("Error getting file length. ");

    if (static_cast<UInt64>(bytes) != size())
        bytesInBuffer_ = 0;
    resize(static_cast<UInt64>(bytes));
    return size();
}

UInt64 FileSource::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 const wanted = std::min(howMuch, remaining());
    UInt64 done = 0;
    while (done < wanted)
    {
        UInt64 const piece = readPiece(position() + done, destination + done, wanted - done);
        if (piece == 0)
            break;
        done += piece;
    }
    advance(done);
    return done;
}

UInt64 FileSource::readPiece(UInt64 position, unsigned char * destination, UInt64 howMuch)
{
    if (!isInBuffer(position))
    {
        if (howMuch >= buffer_.size())
            return readFile(position, destination, howMuch);

        bytesInBuffer_ = 0;
        bytesInBuffer_ = readFile(position, buffer_.data(), std::min<UInt64>(buffer_.size(), size() - position));
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

#include "DataIO/File/WritableFile.h"

#include "Exceptions/Check.h"
#include "Exceptions/IOError.h"
#include "Exceptions/InvalidValue.h"
#include "Platform/Files.h"
#include "Platform/WideLiteral.h"

#include <algorithm>

namespace Vantry { namespace DataIO { namespace File {

namespace {

constexpr auto UPDATE = Platform::wide(u"r+b");
constexpr auto CREATE = Platform::wide(u"wb");

}

WritableFile::WritableFile(unsigned short const * name, bool append, int bufferSize) :
    FileImpl(name, append ? UPDATE.text : CREATE.text, bufferSize)
{
    setBuffering(name);
    if (append)
        seek(remaining());
}

void WritableFile::setBuffering(unsigned short const * name)
{
    char const * const lead = "Error setting buffering mode in file: '";
    buffer_.resize(bufferSize_);
    auto * const buffer = reinterpret_cast<char *>(buffer_.data());

    if (bufferSize_ == 0)
        VANTRY_CHECK_TEXT(std::setvbuf(file_.get(), nullptr, _IONBF, 0) == 0,
                          "::setvbuf (file_, 0, _IONBF, 0) == 0", InvalidValue, systemMessage(lead, name));
    else
        VANTRY_CHECK_TEXT(std::setvbuf(file_.get(), buffer, _IOFBF, bufferSize_) == 0,
                          "::setvbuf (file_, 0, _IOFBF, bufferSize) == 0", InvalidValue, systemMessage(lead, name));
}

void WritableFile::write(unsigned char const * source, UInt64 howMuch)
{
    UInt64 const writeResult = std::fwrite(source, 1, howMuch, file_.get());
    VANTRY_CHECK(writeResult == howMuch, IOError, systemMessage("Error writing to file. "));
    position_ += howMuch;
    size_ += howMuch;
}

UInt64 WritableFile::seek(UInt64 position)
{
    UInt64 const target = std::min(position, size_);
    VANTRY_CHECK_TEXT(Platform::fileSeek(file_.get(), static_cast<Int64>(target)),
                      "Platform::fileSeek (file_, position)", IOError, systemMessage("Error seeking. "));
    position_ = target;
    return target;
}

void WritableFile::flush()
{
    VANTRY_CHECK_TEXT(std::fflush(file_.get()) == 0, "writeResult == howMuch", IOError,
                      systemMessage("Error writing to file. "));
}

}}}

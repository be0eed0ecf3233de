#include "DataIO/File/FileImpl.h"

#include "Exceptions/Check.h"
#include "Exceptions/IOError.h"
#include "Platform/Files.h"
#include "Platform/SystemError.h"
#include "Platform/Text.h"

namespace Vantry { namespace DataIO { namespace File {

namespace {

std::size_t const DEFAULT_BUFFER_SIZE = 65536;

}

FileImpl::FileImpl(unsigned short const * name, unsigned short const * mode, int bufferSize) :
    bufferSize_(bufferSize < 0 ? DEFAULT_BUFFER_SIZE : static_cast<std::size_t>(bufferSize)),
    file_(Platform::fopen(name, mode)),
    size_(0),
    position_(0)
{
    VANTRY_CHECK_TEXT(file_ != nullptr, "file_ != 0", IOError, systemMessage("Error opening: '", name));

    Int64 const sizeResult = Platform::getFileSize(file_.get());
    VANTRY_CHECK(sizeResult != -1L, IOError, systemMessage("Error getting file length: '", name));
    size_ = static_cast<UInt64>(sizeResult);
}

FileImpl::~FileImpl() = default;

void FileImpl::Close::operator()(std::FILE * file) const noexcept
{
    std::fclose(file);
}

Templates::wstring FileImpl::systemMessage(char const * lead)
{
    Templates::wstring const reason = Platform::lastErrorMessage();
    return Platform::stringToWstring(lead) + reason;
}

Templates::wstring FileImpl::systemMessage(char const * lead, unsigned short const * name)
{
    Templates::wstring const reason = Platform::lastErrorMessage();
    return Platform::stringToWstring(lead) + name + Platform::stringToWstring("'. ") + reason;
}

}}}

#include "Platform/Files.h"

#include "Exceptions/Check.h"
#include "Exceptions/IOError.h"
#include "Platform/SystemError.h"
#include "Platform/Text.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vantry { namespace Platform {

static_assert(sizeof(off_t) == sizeof(Int64), "positions have 64 bits");

std::FILE * fopen(unsigned short const * name, unsigned short const * mode)
{
    return std::fopen(wstringToString(name).c_str(), (wstringToString(mode) + "e").c_str());
}

int open(unsigned short const * name, bool, bool readOnly)
{
    int const flags = (readOnly ? O_RDONLY : O_RDWR | O_CREAT) | O_CLOEXEC;
    int const file = ::open(wstringToString(name).c_str(), flags, 0666);
    if (file == -1)
    {
        Templates::wstring const reason = lastErrorMessage();
        VANTRY_FAIL(IOError, stringToWstring("Error opening file: ('") + name + stringToWstring("'): ") + reason);
    }
    return file;
}

int close(int file)
{
    return ::close(file);
}

int read(int file, unsigned char * buffer, unsigned int size)
{
    // The system gives at most so much at a time that it can be told as int.
    ssize_t count = 0;
    do
        count = ::read(file, buffer, size);
    while (count == -1 && errno == EINTR);
    return static_cast<int>(count);
}

Int64 getFileSize(std::FILE * file)
{
    return getFileSize(::fileno(file));
}

Int64 getFileSize(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 ? status.st_size : -1;
}

bool fileSeek(std::FILE * file, Int64 position)
{
    return std::fflush(file) == 0 && ::fseeko(file, position, SEEK_SET) == 0;
}

bool fileSeek(int file, Int64 position)
{
    ::lseek(file, position, SEEK_SET);
    return true;
}

bool unlink(unsigned short const * name)
{
    return ::unlink(wstringToString(name).c_str()) == 0;
}

}}

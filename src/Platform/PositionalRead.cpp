#include "Platform/PositionalRead.h"

#include <algorithm>
#include <cerrno>

#include <unistd.h>

namespace Vantry { namespace Platform {

namespace {

// Systems cut requests of 2 GiB and more short.
UInt64 const LARGEST_REQUEST = UInt64(1) << 30;

}

Int64 readAt(std::FILE * file, UInt64 position, unsigned char * destination, UInt64 size) noexcept
{
    int const descriptor = fileno(file);

    UInt64 done = 0;
    while (done < size)
    {
        ssize_t const got = pread(descriptor, destination + done, std::min(size - done, LARGEST_REQUEST),
                                  static_cast<off_t>(position + done));
        if (got == 0)
            break;
        if (got > 0)
            done += static_cast<UInt64>(got);
        else if (errno != EINTR)
            return -1;
    }
    return static_cast<Int64>(done);
}

}}

#include "Platform/Files.h"

#include "Platform/Text.h"
#include "Templates/Containers.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vantry { namespace Platform {

namespace {

class Descriptor
{
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor const &) = delete;
    Descriptor & operator=(Descriptor const &) = delete;
    ~Descriptor() { close(); }

    int number() const { return number_; }

    // Some systems tell only here that the bytes found no room.
    bool close()
    {
        int const number = number_;
        number_ = -1;
        return number != -1 && ::close(number) == 0;
    }

private:
    int number_;
};

// The file that a name leads to, links followed, or the name itself where
// there is none yet. Empty when a file can't be put there.
Templates::string plainFile(Templates::string const & name)
{
    struct stat status = {};
    if (::stat(name.c_str(), &status) != 0)
        return errno == ENOENT ? name : Templates::string();
    if (!S_ISREG(status.st_mode))
        return {};

    char * const resolved = ::realpath(name.c_str(), nullptr);
    Templates::string path(resolved != nullptr ? resolved : "");
    std::free(resolved);
    return path;
}

bool writeAll(int file, char const * bytes, std::size_t size)
{
    while (size != 0)
    {
        ssize_t const written = ::write(file, bytes, size);
        if (written == -1 && errno != EINTR)
            return false;
        if (written > 0)
        {
            bytes += written;
            size -= static_cast<std::size_t>(written);
        }
    }
    return true;
}

// The system moves what it can by itself; not every pair of files can do that.
bool copyBytes(int from, int to)
{
    while (::copy_file_range(from, nullptr, to, nullptr, std::size_t(1) << 30, 0) > 0)
        continue;

    char buffer[64 * 1024];
    for (;;)
    {
        ssize_t const count = ::read(from, buffer, sizeof(buffer));
        if (count == 0)
            return true;
        if (count == -1 && errno != EINTR)
            return false;
        if (count > 0 && !writeAll(to, buffer, static_cast<std::size_t>(count)))
            return false;
    }
}

bool copyContent(Descriptor const & source, Descriptor & target)
{
    struct stat status = {};
    return ::fstat(source.number(), &status) == 0 && copyBytes(source.number(), target.number()) &&
           ::fchmod(target.number(), status.st_mode & 0777) == 0 && target.close();
}

}

bool copyFile(unsigned short const * from, unsigned short const * to)
{
    Descriptor const source(::open(wstringToString(from).c_str(), O_RDONLY | O_CLOEXEC));
    Templates::string const target = plainFile(wstringToString(to));
    if (source.number() == -1 || target.empty())
        return false;

    // Beside the target, which a finished copy replaces in one step.
    Templates::string copy = target + ".XXXXXX";
    Descriptor copied(::mkostemp(&copy[0], O_CLOEXEC));
    if (copied.number() == -1)
        return false;

    if (copyContent(source, copied) && ::rename(copy.c_str(), target.c_str()) == 0)
        return true;
    ::unlink(copy.c_str());
    return false;
}

}}

#include "FileWindow.h"

#include "Exceptions/IOError.h"
#include "Failure.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <new>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Vantry { namespace Application {

namespace {

int const READ_AND_WRITE = PROT_READ | PROT_WRITE;

/// Brings pages to memory. What can't be read shows here, and not at the first
/// look at the bytes.
bool fetch([[maybe_unused]] void * pages, [[maybe_unused]] std::size_t length)
{
#ifdef MADV_POPULATE_READ
    return ::madvise(pages, length, MADV_POPULATE_READ) == 0;
#else
    return false;
#endif
}

void endWithMessage(int)
{
    char const message[] = "vantry: a file got shorter while it was read\n";
    [[maybe_unused]] ssize_t const written = ::write(STDERR_FILENO, message, sizeof(message) - 1);
    ::_exit(static_cast<int>(ExitStatus::FAILED));
}

}

FileWindow::FileWindow(int file, UInt64 position, std::size_t size)
{
    if (size != 0 && !map(file, position, size))
        read(file, position, size);
}

void FileWindow::Unmap::operator()(void * pages) const
{
    ::munmap(pages, length);
}

bool FileWindow::map(int file, UInt64 position, std::size_t size)
{
    static auto const pageSize = static_cast<UInt64>(::sysconf(_SC_PAGESIZE));
    std::size_t const ahead = position % pageSize;
    std::size_t const length = ahead + size;
    void * const pages = ::mmap(nullptr, length, READ_AND_WRITE, MAP_PRIVATE | MAP_NORESERVE, file,
                                static_cast<off_t>(position - ahead));
    if (pages == MAP_FAILED)
        return false;

    std::unique_ptr<void, Unmap> mapped(pages, Unmap{length});
    if (!fetch(pages, length))
        return false;
    pages_ = std::move(mapped);
    ahead_ = ahead;
    size_ = size;
    return true;
}

void FileWindow::read(int file, UInt64 position, std::size_t size)
{
    void * const pages = ::mmap(nullptr, size, READ_AND_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED)
        throw std::bad_alloc();

    pages_ = std::unique_ptr<void, Unmap>(pages, Unmap{size});
    while (size_ < size)
    {
        ssize_t const got = ::pread(file, begin() + size_, size - size_, static_cast<off_t>(position + size_));
        if (got == 0)
            break;
        if (got > 0)
            size_ += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            throw Exceptions::IOError((std::string("Error reading from file. ") + std::strerror(errno)).c_str(),
                                      __FILE__, __LINE__);
    }
}

WindowedFile::WindowedFile(std::string const & name) : file_(::open(name.c_str(), O_RDONLY | O_CLOEXEC)), size_(0)
{
    struct stat state = {};
    if (file_ < 0 || ::fstat(file_, &state) != 0)
        throw Failure(ExitStatus::FAILED, name, std::string("can't be opened: ") + std::strerror(errno));
    size_ = static_cast<UInt64>(state.st_size);
}

WindowedFile::~WindowedFile()
{
    ::close(file_);
}

void endOnLostWindow()
{
    std::signal(SIGBUS, endWithMessage);
}

}}

#include "GatheringFile.h"

#include "Failure.h"
#include "Output.h"

#include <cerrno>
#include <cstring>
#include <functional>

#include <fcntl.h>
#include <unistd.h>

namespace Vantry { namespace Application {

namespace {

std::size_t const MOST_PIECES = 1024; // of one call, on Linux
std::size_t const SMALL_PIECE = 1024;
std::size_t const SMALL_ROOM = 1 << 16;

/// Takes what was written off the pieces; returns how many are done.
std::size_t takeOff(std::vector<iovec> & pieces, std::size_t first, std::size_t written)
{
    while (first < pieces.size() && written >= pieces[first].iov_len)
        written -= pieces[first++].iov_len;
    if (written > 0)
    {
        iovec & piece = pieces[first];
        piece.iov_base = static_cast<char *>(piece.iov_base) + written;
        piece.iov_len -= written;
    }
    return first;
}

}

GatheringFile::GatheringFile(std::filesystem::path const & path, std::filesystem::path const & name) :
    name_(name.string()),
    file_(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)),
    size_(0),
    small_(SMALL_ROOM),
    smallUsed_(0),
    lent_(0)
{
    if (file_ < 0)
        fail();
}

GatheringFile::GatheringFile() :
    name_("standard output"), file_(STDOUT_FILENO), size_(0), small_(SMALL_ROOM), smallUsed_(0), lent_(0)
{
}

GatheringFile::~GatheringFile()
{
    if (file_ > STDOUT_FILENO)
        ::close(file_);
}

void GatheringFile::append(unsigned char const * bytes, std::size_t size)
{
    if (size == 0)
        return;
    if (pieces_.size() == MOST_PIECES || (size < SMALL_PIECE && smallUsed_ + size > SMALL_ROOM))
        flush();

    if (size < SMALL_PIECE)
        keepSmall(bytes, size);
    else
        addPiece(bytes, size);
    lent_ += size < SMALL_PIECE ? 0 : size;
    size_ += size;
}

void GatheringFile::keepSmall(unsigned char const * bytes, std::size_t size)
{
    unsigned char * const copy = small_.data() + smallUsed_;
    std::memcpy(copy, bytes, size);
    smallUsed_ += size;
    addPiece(copy, size);
}

bool GatheringFile::isLent(iovec const & piece) const
{
    std::less<void const *> const isAhead{};
    return isAhead(piece.iov_base, small_.data()) || !isAhead(piece.iov_base, small_.data() + small_.size());
}

void GatheringFile::addPiece(unsigned char const * bytes, std::size_t size)
{
    if (!pieces_.empty())
    {
        iovec & last = pieces_.back();
        if (static_cast<unsigned char const *>(last.iov_base) + last.iov_len == bytes)
        {
            last.iov_len += size;
            return;
        }
    }
    pieces_.push_back({const_cast<unsigned char *>(bytes), size});
}

void GatheringFile::settle()
{
    if (lent_ > SMALL_ROOM - smallUsed_)
        return flush();

    for (iovec & piece : pieces_)
        if (isLent(piece))
        {
            piece.iov_base = std::memcpy(small_.data() + smallUsed_, piece.iov_base, piece.iov_len);
            smallUsed_ += piece.iov_len;
        }
    lent_ = 0;
}

void GatheringFile::flush()
{
    for (std::size_t first = 0; first < pieces_.size();)
    {
        int const count = static_cast<int>(pieces_.size() - first);
        ssize_t const written = ::writev(file_, pieces_.data() + first, count);
        if (written >= 0)
            first = takeOff(pieces_, first, static_cast<std::size_t>(written));
        else if (errno == EPIPE)
            throw ReaderGone();
        else if (errno != EINTR)
            fail();
    }
    pieces_.clear();
    smallUsed_ = 0;
    lent_ = 0;
}

void GatheringFile::overwrite(UInt64 position, unsigned char const * bytes, std::size_t size)
{
    if (::pwrite(file_, bytes, size, static_cast<off_t>(position)) != static_cast<ssize_t>(size))
        fail();
}

void GatheringFile::close()
{
    flush();
    if (file_ == STDOUT_FILENO)
        return;

    int const file = file_;
    file_ = -1;
    if (::close(file) != 0)
        fail();
}

void GatheringFile::fail() const
{
    throw Failure(ExitStatus::FAILED, name_, std::string("can't be written: ") + std::strerror(errno));
}

}}

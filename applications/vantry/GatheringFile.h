#pragma once

#include "Platform/Integers.h"

#include <filesystem>
#include <vector>

#include <sys/uio.h>

namespace Vantry { namespace Application {

/// A file that takes bytes from where they lie: many pieces go out with one
/// call to the system. What isn't closed in order is lost.
class GatheringFile
{
public:
    /// Makes a file that isn't there yet.
    ///
    /// \param name  what failures call it: while it is a draft, its name to be
    /// \throws Failure when it can't be made, as those below when it can't be
    ///         written.
    GatheringFile(std::filesystem::path const & path, std::filesystem::path const & name);

    /// Writes to standard output.
    GatheringFile();

    GatheringFile(GatheringFile const &) = delete;
    GatheringFile & operator=(GatheringFile const &) = delete;
    ~GatheringFile();

    /// Appends bytes, which stay where they are until `flush`.
    void append(unsigned char const * bytes, std::size_t size);

    /// Has no more need of the bytes where they lie. Few are kept until there
    /// are more, and many written out.
    void settle();

    /// Writes out what was appended.
    void flush();

    /// Puts bytes in place of others, which were written already.
    void overwrite(UInt64 position, unsigned char const * bytes, std::size_t size);

    /// Flushes, and ends the file.
    void close();

    /// Bytes appended.
    UInt64 size() const { return size_; }

private:
    void keepSmall(unsigned char const * bytes, std::size_t size);
    void addPiece(unsigned char const * bytes, std::size_t size);
    bool isLent(iovec const & piece) const;
    [[noreturn]] void fail() const;

    std::string name_;
    int file_;
    UInt64 size_;
    std::vector<iovec> pieces_;
    std::vector<unsigned char> small_; // copies, where a piece isn't worth it
    std::size_t smallUsed_;
    std::size_t lent_; // bytes of pieces that are no copies
};

}}

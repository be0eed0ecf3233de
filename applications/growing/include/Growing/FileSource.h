#pragma once

#include "DataIO/PositionedDataSource.h"
#include "DataIO/StreamingDataSource.h"

#include <cstdio>
#include <memory>
#include <vector>

namespace Vantry {

/// Follows files that are still being written.
namespace Growing {

/// The bytes of a file that others append to, as far as they were there at
/// the last refresh.
///
/// Moving, and reading what is in the buffer, makes no call to the system.
/// The file stays the one that was opened, whoever renames it. Not for two
/// threads at once.
class FileSource : public DataIO::PositionedDataSource, public DataIO::StreamingDataSource
{
public:
    VANTRY_CLASS_ALLOCATION

    static constexpr UInt64 DEFAULT_BUFFER_SIZE = 65536;

    /// Opens the file.
    ///
    /// \param name        path, UTF-16
    /// \param bufferSize  bytes that a small read takes from the file at once
    /// \throws Exceptions::IOError when the file can't be opened.
    explicit FileSource(unsigned short const * name, UInt64 bufferSize = DEFAULT_BUFFER_SIZE);

    /// Looks up how many bytes there are now. Where their number has changed,
    /// those in the buffer are read anew: writers go back to what they left
    /// open. In a file that was cut off the position is the end at most.
    ///
    /// \throws Exceptions::IOError "Error getting file length."
    UInt64 refresh() override;

    /// \throws Exceptions::IOError "Error reading from file.", and then the
    ///         position is where it was.
    UInt64 read(unsigned char * destination, UInt64 howMuch) override;

private:
    struct Close
    {
        void operator()(std::FILE * file) const noexcept { std::fclose(file); }
    };

    bool isInBuffer(UInt64 position) const { return position - bufferStart_ < bytesInBuffer_; }
    UInt64 readPiece(UInt64 position, unsigned char * destination, UInt64 howMuch);
    UInt64 readFile(UInt64 position, unsigned char * destination, UInt64 howMuch);

    std::unique_ptr<std::FILE, Close> const file_;

    std::vector<unsigned char> buffer_;
    UInt64 bufferStart_;
    UInt64 bytesInBuffer_;
};

}
}

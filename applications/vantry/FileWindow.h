#pragma once

#include "Platform/Integers.h"

#include <cstddef>
#include <memory>
#include <string>

namespace Vantry { namespace Application {

/// A stretch of a file in memory: mapped, so that nothing is copied, or read
/// where that can't be.
class FileWindow
{
public:
    /// Holds nothing.
    FileWindow() = default;

    /// \param file  a descriptor, which may be closed afterwards
    /// \param size  bytes; they are fewer where the file ends
    /// \throws Exceptions::IOError when the file can't be read.
    FileWindow(int file, UInt64 position, std::size_t size);

    /// The bytes may be changed, of which the file sees nothing.
    unsigned char * begin() const { return static_cast<unsigned char *>(pages_.get()) + ahead_; }
    std::size_t size() const { return size_; }

private:
    struct Unmap
    {
        void operator()(void * pages) const;

        std::size_t length;
    };

    bool map(int file, UInt64 position, std::size_t size);
    void read(int file, UInt64 position, std::size_t size);

    std::unique_ptr<void, Unmap> pages_{nullptr, Unmap{0}};
    std::size_t ahead_ = 0; // bytes of the pages ahead of those wanted
    std::size_t size_ = 0;
};

/// A file that is looked at through windows.
class WindowedFile
{
public:
    /// \throws Failure when there is no such file, or it can't be read.
    explicit WindowedFile(std::string const & name);
    WindowedFile(WindowedFile const &) = delete;
    WindowedFile & operator=(WindowedFile const &) = delete;
    ~WindowedFile();

    /// Bytes when it was opened.
    UInt64 size() const { return size_; }

    /// \throws Exceptions::IOError when the file can't be read.
    FileWindow window(UInt64 position, std::size_t size) const { return FileWindow(file_, position, size); }

private:
    int file_;
    UInt64 size_;
};

/// Has the program end with a message when a file gets shorter than a window
/// of it, which the system tells by a signal alone.
void endOnLostWindow();

}}

#pragma once

#include "DataIO/File/FileImpl.h"

#include <algorithm>

namespace Vantry { namespace DataIO { namespace File {

/// A file to read. A part of it, the window, is in memory; moving about makes
/// no call to the system, and neither does reading in the window.
class ReadableFile : public FileImpl
{
public:
    /// \throws Exceptions::IOError.
    ReadableFile(unsigned short const * name, int bufferSize);

    /// Reads up to `howMuch` bytes; the position moves when all went well.
    ///
    /// \throws Exceptions::IOError.
    UInt64 read(unsigned char * destination, UInt64 howMuch)
    {
        UInt64 const place = position_ - windowStart_;
        if (place >= windowSize_ || howMuch > windowSize_ - place)
            return readBeyondWindow(destination, std::min(howMuch, remaining()));

        std::copy_n(buffer_.data() + place, howMuch, destination);
        reached_ = std::max(reached_, place + howMuch);
        position_ += howMuch;
        return howMuch;
    }

    UInt64 skip(UInt64 howMuch) noexcept
    {
        UInt64 const size = std::min(howMuch, remaining());
        position_ += size;
        return size;
    }

    UInt64 seek(UInt64 position) noexcept
    {
        position_ = std::min(position, size_);
        return position_;
    }

private:
    UInt64 readBeyondWindow(unsigned char * destination, UInt64 howMuch);
    UInt64 takeFromWindow(UInt64 position, unsigned char * destination, UInt64 howMuch) noexcept;
    void moveWindow(UInt64 position, UInt64 atLeast);
    void adaptWindow(UInt64 position) noexcept;
    UInt64 readFile(UInt64 position, unsigned char * destination, UInt64 howMuch);

    UInt64 windowStart_;
    UInt64 windowSize_;

    /// How far into the window reading has come.
    UInt64 reached_;

    /// Bytes of the windows that this one adjoins: how much was read since the
    /// position was last set elsewhere.
    UInt64 readAhead_;

    /// Size of the next window.
    UInt64 wantedSize_;
};

}}}

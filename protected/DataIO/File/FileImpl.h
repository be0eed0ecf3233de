#pragma once

#include "Platform/Allocation.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

#include <cstdio>
#include <memory>

namespace Vantry { namespace DataIO { namespace File {

/// An open file: what reading and writing have in common.
class FileImpl
{
public:
    VANTRY_CLASS_ALLOCATION

    FileImpl(FileImpl const &) = delete;
    FileImpl & operator=(FileImpl const &) = delete;

    UInt64 absoluteOffset() const noexcept { return position_; }
    UInt64 remaining() const noexcept { return size_ - position_; }

protected:
    /// A negative buffer size stands for a default.
    ///
    /// \throws Exceptions::IOError.
    FileImpl(unsigned short const * name, unsigned short const * mode, int bufferSize);

    /// Closes the file, after whatever derived classes do.
    ~FileImpl();

    /// `lead`, and then what the system said last.
    static Templates::wstring systemMessage(char const * lead);

    /// "`lead` '`name`'. ", and then what the system said last.
    static Templates::wstring systemMessage(char const * lead, unsigned short const * name);

    std::size_t const bufferSize_;

    /// Up to `bufferSize_` bytes, for a derived class to use. It is there for
    /// as long as the stream.
    Templates::vector<unsigned char> buffer_;

private:
    struct Close
    {
        void operator()(std::FILE * file) const noexcept;
    };

protected:
    std::unique_ptr<std::FILE, Close> const file_;
    UInt64 size_;
    UInt64 position_;
};

}}}

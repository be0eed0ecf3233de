#pragma once

#include "Platform/Integers.h"

#include <cstddef>
#include <memory>
#include <string>

namespace Vantry {
namespace DataIO {
class DataSource;
class RandomAccessDataSource;
}

namespace Application {

/// Bytes that somebody else keeps.
struct BytesInMemory
{
    unsigned char const * bytes = nullptr;
    std::size_t size = 0;
};

/// The bytes that a command reads once from front to back: of a file, or of a
/// stream that can't seek.
class Input
{
public:
    /// How far `stepBack` goes.
    static constexpr UInt64 LONGEST_STEP_BACK = 64;

    /// Opens a file, or standard input for "-".
    ///
    /// \throws Failure when there is no such file, or it can't be read.
    static std::unique_ptr<Input> open(std::string const & name);

    virtual ~Input() = default;

    virtual DataIO::DataSource & source() = 0;

    /// Goes back by some of the bytes that `source` has just read.
    virtual void stepBack(UInt64 howMuch) = 0;

    /// Bytes ahead of `source` that are in memory and can be looked at there;
    /// may be none at any time.
    virtual BytesInMemory ahead() const { return {}; }
};

/// \throws Failure when there is no such file, or it can't be read.
void requireReadable(std::string const & name);

/// Opens a file for a command that reads here and there.
///
/// \throws Failure when there is no such file, it can't be read, or it is a
///         stream.
std::unique_ptr<DataIO::RandomAccessDataSource> openRandomAccess(std::string const & name);

}
}

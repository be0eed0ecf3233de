#pragma once

#include "DataIO/PositionedDataSource.h"
#include "FileWindow.h"
#include "Input.h"
#include "Platform/Integers.h"

#include <functional>
#include <string>

namespace Vantry { namespace Application {

/// Reads a file in large blocks and lends their bytes, which then get to an
/// output without being copied on the way.
class BlockSource : public DataIO::PositionedDataSource
{
public:
    /// \throws Failure when there is no such file, or it can't be read.
    explicit BlockSource(std::string const & file);

    /// Is called before a block makes room for another.
    void beforeBlockGoes(std::function<void()> listener) { blockGoes_ = std::move(listener); }

    /// Lends up to `howMuch` bytes from the position on, and moves behind
    /// them; none at the end of the file. They are good until the listener
    /// hears that they go.
    ///
    /// \throws Exceptions::IOError when the file can't be read.
    BytesInMemory lend(UInt64 howMuch);

    /// What the block has from the position on.
    BytesInMemory ahead() const
    {
        if (position() < blockStart_ || position() >= blockEnd_)
            return {};
        return {block_.begin() + (position() - blockStart_), static_cast<std::size_t>(blockEnd_ - position())};
    }

    UInt64 read(unsigned char * destination, UInt64 howMuch) override;

private:
    void readBlock();

    WindowedFile file_;
    std::function<void()> blockGoes_;

    FileWindow block_;
    UInt64 blockStart_;
    UInt64 blockEnd_;
};

}}

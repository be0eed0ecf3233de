#pragma once

#include "DataIO/SliceSource.h"
#include "FileWindow.h"

namespace Vantry { namespace Application {

/// The bytes of a file in slices that are windows of it, so that none is
/// copied on the way to the output.
class WindowSource : public DataIO::SliceSource
{
public:
    /// \param sliceSize  bytes of every slice but the last, whatever is asked
    /// \throws Failure when there is no such file, or it can't be read.
    WindowSource(std::string const & file, std::size_t sliceSize);

    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;
    UInt64 absoluteOffset() const override { return position_; }
    bool endOfStream() const override { return position_ == size_; }
    UInt64 skip(UInt64 howMuch) override;

private:
    WindowedFile file_;
    std::size_t sliceSize_;
    UInt64 size_;
    UInt64 position_;
};

}}

#pragma once

#include "DataIO/SliceReader.h"
#include "DataIO/SyncWordFinder.h"

namespace Vantry { namespace Analyzers {

/// Finds the start codes of MPEG video (ISO/IEC 13818-2), 00 00 01 and a
/// value, other than those of slices. What is passed over is neither copied
/// nor looked at byte by byte.
class StartCodes
{
public:
    static constexpr UInt64 SIZE = 4;

    /// The reader is lent.
    explicit StartCodes(DataIO::SliceReader & reader);

    /// Moves what lies ahead of the next start code to `passed` and leaves
    /// the reader there; false at the end of the stream.
    ///
    /// \param limit  where in the stream no more is looked for
    bool find(UInt64 limit, DataIO::Chain & passed);

    /// The value of the start code that was found.
    unsigned char value() const noexcept { return value_; }

    /// Slices that were passed over.
    UInt64 slices() const noexcept { return slices_; }

    /// The row of macroblocks that the last of them begins in, from 1 on; in
    /// pictures of more than 2800 lines the row within its part.
    unsigned char row() const noexcept { return row_; }

private:
    bool findInSlice(DataIO::Chain & passed);
    bool findAtSeam(Templates::auto_ptr<DataIO::Slice> slice, UInt64 size, DataIO::Chain & passed);
    Templates::auto_ptr<DataIO::Slice> nextSlice();
    bool isWanted(unsigned char value) noexcept;

    DataIO::SliceReader & reader_;
    DataIO::SyncWordFinder finder_;
    unsigned char value_;
    UInt64 slices_;
    unsigned char row_;
};

}}

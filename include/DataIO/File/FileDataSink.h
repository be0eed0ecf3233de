#pragma once

#include "DataIO/RandomAccessDataSink.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO { namespace File {

/// A file to write to.
///
/// Bytes may wait in a buffer. `flush` and `seek` write them, and report at
/// the latest that the disk is full; at the end of the sink nobody hears of
/// it. Not for two threads at once.
class VANTRY_EXPORT FileDataSink : public RandomAccessDataSink
{
public:
    /// Opens the file.
    ///
    /// \param name        path, UTF-16
    /// \param append      whether to go on at the end of a file, which must
    ///                    exist; otherwise it is made, or emptied
    /// \param bufferSize  bytes to collect; 0 for none, below 0 for a size
    ///                    that suits most uses
    /// \throws Exceptions::IOError when the file can't be opened.
    /// \throws Exceptions::InvalidValue when the system refuses the buffer.
    FileDataSink(unsigned short const * name, bool append, int bufferSize);
    FileDataSink(FileDataSink const &) = delete;
    FileDataSink & operator=(FileDataSink const &) = delete;
    ~FileDataSink() override;

    void write(unsigned char const * source, UInt64 howMuch) override;

    /// Moves to `position`, at most to the size that the file had at opening
    /// plus all bytes written since, in whatever place.
    ///
    /// \throws Exceptions::IOError "Error seeking."
    UInt64 seek(UInt64 position) override;

    UInt64 absoluteOffset() const override;

    /// Hands all bytes written so far to the system.
    ///
    /// \throws Exceptions::IOError "Error writing to file."
    void flush();

private:
    class Impl;
    Impl * impl_;
};

}}}

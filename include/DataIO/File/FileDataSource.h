#pragma once

#include "DataIO/RandomAccessDataSource.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO { namespace File {

/// The bytes of a file.
///
/// The size is looked up once, at opening: what is appended later isn't seen.
/// Moving costs nothing until bytes are read that aren't in the buffer. Not
/// for two threads at once.
class VANTRY_EXPORT FileDataSource : public RandomAccessDataSource
{
public:
    /// Opens the file.
    ///
    /// \param name        path, UTF-16
    /// \param bufferSize  bytes that a small read takes from the file at
    ///                    once; 0 for none but those wanted, below 0 for a
    ///                    size that suits most uses
    /// \throws Exceptions::IOError when the file can't be opened.
    FileDataSource(unsigned short const * name, int bufferSize);
    FileDataSource(FileDataSource const &) = delete;
    FileDataSource & operator=(FileDataSource const &) = delete;
    ~FileDataSource() override;

    /// \throws Exceptions::IOError "Error reading from file.", and then the
    ///         position is where it was.
    UInt64 read(unsigned char * destination, UInt64 howMuch) override;
    UInt64 skip(UInt64 howMuch) override;
    UInt64 seek(UInt64 position) override;
    void discard() override;

    UInt64 absoluteOffset() const override;
    UInt64 remaining() const override;
    bool endOfStream() const override;

private:
    class Impl;
    Impl * impl_;
};

}}}

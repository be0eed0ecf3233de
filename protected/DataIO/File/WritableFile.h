#pragma once

#include "DataIO/File/FileImpl.h"

namespace Vantry { namespace DataIO { namespace File {

/// A file to write. Its size counts all bytes written, those that replaced
/// others too.
class WritableFile : public FileImpl
{
public:
    /// With `append` the position is the end of a file that must exist;
    /// otherwise the file is made or emptied.
    ///
    /// \throws Exceptions::IOError, Exceptions::InvalidValue.
    WritableFile(unsigned short const * name, bool append, int bufferSize);

    /// \throws Exceptions::IOError.
    void write(unsigned char const * source, UInt64 howMuch);
    UInt64 seek(UInt64 position);
    void flush();

private:
    void setBuffering(unsigned short const * name);
};

}}}

#pragma once

#include "DataIO/BlockFactory.h"
#include "DataIO/SliceSource.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace DataIO { namespace File {

/// The bytes of a file in large slices, which readers cut up without a copy.
///
/// The size is looked up once, at opening. Not for two threads at once.
class VANTRY_EXPORT FileSliceSource : public SliceSource
{
public:
    /// Opens the file, with blocks from the MemoryBlockFactory.
    ///
    /// \param name         path, UTF-16
    /// \param minimumRead  bytes of the smallest request; 0 means 65536
    /// \param maximumRead  bytes of the largest request; 0 means 2097152
    /// \throws Exceptions::IOError when the file can't be opened.
    FileSliceSource(unsigned short const * name, UInt64 minimumRead, UInt64 maximumRead);

    /// The same with blocks from `factory`.
    FileSliceSource(unsigned short const * name, Templates::SharedPtr<BlockFactory> factory, UInt64 minimumRead,
                    UInt64 maximumRead);
    FileSliceSource(FileSliceSource const &) = delete;
    FileSliceSource & operator=(FileSliceSource const &) = delete;
    ~FileSliceSource() override;

    /// A slice of `howMuch` bytes, raised to the smallest request and cut to
    /// the largest. It is shorter at the end of the file alone, and has a
    /// block to itself.
    ///
    /// \throws Exceptions::IOError "Error reading from file."
    /// \throws Exceptions::BadAlloc.
    Templates::auto_ptr<Slice> read(UInt64 howMuch) override;

    UInt64 absoluteOffset() const override;
    bool endOfStream() const override;
    UInt64 skip(UInt64 howMuch) override;

    /// Bytes from here to the end.
    virtual UInt64 remaining() const;

private:
    class Impl;
    Impl * impl_;
};

}}}

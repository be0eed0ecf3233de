#pragma once

#include "DataIO/PositionedDataSource.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

namespace Vantry { namespace DataIO { namespace Memory {

/// A copy of bytes as a source: a pack or a set rather than a file, below
/// 4 GiB.
class VANTRY_EXPORT MemoryDataSource : public PositionedDataSource
{
public:
    /// Copies `size` bytes.
    ///
    /// \throws Exceptions::IOError "Type size exceeded" from 4 GiB on.
    MemoryDataSource(unsigned char const * data, UInt64 size);
    MemoryDataSource(MemoryDataSource const &) = delete;
    MemoryDataSource & operator=(MemoryDataSource const &) = delete;
    ~MemoryDataSource() override;

    UInt64 read(unsigned char * destination, UInt64 howMuch) override;

private:
    Templates::vector<unsigned char> bytes_;
};

}}}

#pragma once

#include "DataIO/DataSink.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

namespace Vantry { namespace DataIO { namespace Memory {

/// Collects bytes in memory: a pack or a set rather than a file, below 4 GiB.
class VANTRY_EXPORT MemoryDataSink : public DataSink
{
public:
    MemoryDataSink();

    /// With room for `reserve` bytes.
    ///
    /// \throws Exceptions::IOError "Type size exceeded" from 4 GiB on.
    explicit MemoryDataSink(UInt64 reserve);
    MemoryDataSink(MemoryDataSink const &) = delete;
    MemoryDataSink & operator=(MemoryDataSink const &) = delete;
    ~MemoryDataSink() override;

    /// \throws Exceptions::IOError "Type size exceeded" when there would be
    ///         4 GiB or more.
    void write(unsigned char const * source, UInt64 howMuch) override;

    UInt64 absoluteOffset() const override;

    /// The bytes held, up to the next write; null while there are none.
    unsigned char const * rawBuffer() const;

    /// How many bytes are held.
    UInt64 serializedSize() const;

private:
    Templates::vector<unsigned char> bytes_;
};

}}}

#include "DataIO/Memory/MemoryDataSink.h"

#include "Exceptions/IOError.h"
#include "Templates/SafeCast.h"

namespace Vantry { namespace DataIO { namespace Memory {

MemoryDataSink::MemoryDataSink() = default;

MemoryDataSink::MemoryDataSink(UInt64 reserve)
{
    bytes_.reserve(Templates::SafeCast<UInt32, Exceptions::IOError>(reserve));
}

MemoryDataSink::~MemoryDataSink() = default;

void MemoryDataSink::write(unsigned char const * source, UInt64 howMuch)
{
    UInt32 const size = Templates::SafeCast<UInt32, Exceptions::IOError>(howMuch);
    Templates::SafeCast<UInt32, Exceptions::IOError>(bytes_.size() + size);
    bytes_.insert(bytes_.end(), source, source + size);
}

UInt64 MemoryDataSink::absoluteOffset() const
{
    return serializedSize();
}

unsigned char const * MemoryDataSink::rawBuffer() const
{
    return bytes_.empty() ? nullptr : bytes_.data();
}

UInt64 MemoryDataSink::serializedSize() const
{
    return bytes_.size();
}

}}}

#include "DataIO/Memory/MemoryDataSource.h"

#include "Exceptions/IOError.h"
#include "Templates/SafeCast.h"

#include <algorithm>

namespace Vantry { namespace DataIO { namespace Memory {

MemoryDataSource::MemoryDataSource(unsigned char const * data, UInt64 size) :
    PositionedDataSource(Templates::SafeCast<UInt32, Exceptions::IOError>(size)), bytes_(data, data + size)
{
}

MemoryDataSource::~MemoryDataSource() = default;

UInt64 MemoryDataSource::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, remaining());
    std::copy_n(bytes_.data() + position(), size, destination);
    advance(size);
    return size;
}

}}}

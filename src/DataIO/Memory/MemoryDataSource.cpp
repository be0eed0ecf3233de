#include "DataIO/Memory/MemoryDataSource.h"

#include "Exceptions/IOError.h"
#include "Templates/SafeCast.h"

#include <algorithm>

namespace Vantry { namespace DataIO { namespace Memory {

MemoryDataSource::MemoryDataSource(unsigned char const * data, UInt64 size) :
    bytes_(data, data + Templates::SafeCast<UInt32, Exceptions::IOError>(size)), position_(0)
{
}

MemoryDataSource::~MemoryDataSource() = default;

UInt64 MemoryDataSource::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, remaining());
    std::copy_n(bytes_.data() + position_, size, destination);
    position_ += size;
    return size;
}

UInt64 MemoryDataSource::skip(UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, remaining());
    position_ += size;
    return size;
}

UInt64 MemoryDataSource::seek(UInt64 position)
{
    position_ = std::min<UInt64>(position, bytes_.size());
    return position_;
}

void MemoryDataSource::discard()
{
    position_ = bytes_.size();
}

UInt64 MemoryDataSource::absoluteOffset() const
{
    return position_;
}

UInt64 MemoryDataSource::remaining() const
{
    return bytes_.size() - position_;
}

bool MemoryDataSource::endOfStream() const
{
    return position_ == bytes_.size();
}

}}}

#include "DataIO/PositionedDataSource.h"

#include <algorithm>

namespace Vantry { namespace DataIO {

PositionedDataSource::~PositionedDataSource() = default;

UInt64 PositionedDataSource::skip(UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, size_ - position_);
    position_ += size;
    return size;
}

UInt64 PositionedDataSource::seek(UInt64 position)
{
    return position_ = std::min(position, size_);
}

void PositionedDataSource::resize(UInt64 size)
{
    size_ = size;
    position_ = std::min(position_, size_);
}

}}

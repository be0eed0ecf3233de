#include "KLV/Packet.h"

#include <limits>

namespace Vantry { namespace KLV {

Packet::Packet(Key const & key, unsigned char berLength, UInt64 length, DataIO::DataSource & source,
               UInt64 keyAbsoluteOffset) :
    key_(key), berLength_(berLength), length_(length), keyAbsoluteOffset_(keyAbsoluteOffset), value_(source, length)
{
}

Packet::~Packet() = default;

UInt64 Packet::klvLength() const noexcept
{
    UInt64 const head = UInt64(key_.size()) + berLength_;
    UInt64 const most = std::numeric_limits<UInt64>::max();
    return length_ > most - head ? most : length_ + head;
}

}}

#include "PacketFaults.h"

#include "KLV/Packet.h"

#include <fmt/format.h>

namespace Vantry { namespace Application {

std::string cutFault(KLV::Packet const & packet, UInt64 bytesThere)
{
    return fmt::format("the packet at offset {} is cut: {} of {} bytes of its value are there",
                       packet.keyAbsoluteOffset(), bytesThere, packet.length());
}

std::string gapFault(UInt64 offset, UInt64 size)
{
    return fmt::format("{} bytes at offset {} are no packet", size, offset);
}

}}

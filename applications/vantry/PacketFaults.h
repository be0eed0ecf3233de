#pragma once

#include "Platform/Integers.h"

#include <string>

namespace Vantry {
namespace KLV {
class Packet;
}

namespace Application {

// SMPTE 377M allows a run-in ahead of the header partition up to this size.
UInt64 const LONGEST_RUN_IN = 65535;

/// Says that the input ends inside a packet.
std::string cutFault(KLV::Packet const & packet, UInt64 bytesThere);

/// Says that bytes belong to no packet.
std::string gapFault(UInt64 offset, UInt64 size);

}
}

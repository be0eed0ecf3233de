#pragma once

#include "Platform/Integers.h"
#include "Templates/Containers.h"

namespace Vantry {

namespace KLV {
class Value;
}

namespace Types {

/// Reads up to `howMuch` bytes, fewer only where the value or its source end;
/// returns how many.
Platform::UInt64 readAvailable(KLV::Value & source, unsigned char * destination, Platform::UInt64 howMuch);

/// Appends all that remains, as far as the source has it. Memory grows with
/// what was read, not with what the value claims.
void appendAvailable(KLV::Value & source, Templates::vector<unsigned char> & bytes);

}
}

#pragma once

#include <cstdint>

namespace Vantry {

namespace Platform {

using Int8 = std::int8_t;
using Int16 = std::int16_t;
using Int32 = std::int32_t;
using Int64 = std::int64_t;
using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using UInt64 = std::uint64_t;

}

// Plain integers are known in the whole library by their short names. Inside
// Types, where value classes bear the same ones, they are always qualified.
using Platform::Int16;
using Platform::Int32;
using Platform::Int64;
using Platform::Int8;
using Platform::UInt16;
using Platform::UInt32;
using Platform::UInt64;
using Platform::UInt8;

}

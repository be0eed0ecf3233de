#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace ByteCoders {

/// Reads 16-bit elements from `byteCount` bytes. The last byte of an odd
/// count is left out.
VANTRY_EXPORT void decodeBigEndian(unsigned char const * source, UInt64 byteCount, unsigned short * destination);
VANTRY_EXPORT void decodeLittleEndian(unsigned char const * source, UInt64 byteCount, unsigned short * destination);

/// Writes `elementCount` 16-bit elements, two bytes each.
VANTRY_EXPORT void encodeBigEndian(unsigned short const * source, UInt64 elementCount, unsigned char * destination);
VANTRY_EXPORT void encodeLittleEndian(unsigned short const * source, UInt64 elementCount, unsigned char * destination);

}}

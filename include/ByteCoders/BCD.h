#pragma once

#include "Platform/Export.h"

namespace Vantry { namespace ByteCoders {

/// Writes the low eight decimal digits of `value`, which isn't negative, into
/// four bytes: two digits to a byte, least significant pair first, the lower
/// digit in the low nibble.
VANTRY_EXPORT void encodeBCD(unsigned char * destination, int value);

/// Reads `digits` digits, 0 to 9, in the order of `encodeBCD`. A nibble
/// above 9 counts as it is.
VANTRY_EXPORT void decodeBCD(unsigned char const * data, unsigned short digits, int & value);

}}

#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

/// Coders between numbers and bytes.
namespace Vantry { namespace ByteCoders {

/// The length field of a KLV packet (SMPTE 336M, BER): either one byte below
/// 80h, which is the length, or a byte with the top bit set, whose low seven
/// bits count the big-endian bytes that follow.

/// Bytes that `codeBER` needs for `value`: 1 to 9. Numbers of 2^63 and more
/// give 1: a length must stay below.
VANTRY_EXPORT unsigned char calculateBERSize(UInt64 value);

/// Writes `value` into the `berSize` bytes, 1 to 9, at `destination`. More
/// bytes than needed make a longer field of the same length. A size of 1
/// takes the low byte of the value, whatever that is.
///
/// \throws Exceptions::InvalidFormat when the size is out of range, or when
///         the value needs more bytes; in the second case its low bytes have
///         been written.
VANTRY_EXPORT void codeBER(UInt64 value, unsigned char berSize, unsigned char * destination);

/// Bytes of a whole length field that starts with `firstByte`: 1 to 127.
///
/// \throws Exceptions::InvalidFormat for 80h, the indefinite form, and FFh.
VANTRY_EXPORT unsigned char decodeBERSize(unsigned char firstByte);

/// Reads the length field of `berSize` bytes at `data`. Of a number longer
/// than 64 bits the low ones are left.
///
/// \throws Exceptions::InvalidFormat as `decodeBERSize`.
VANTRY_EXPORT void decodeBER(unsigned char const * data, unsigned char berSize, UInt64 & result);

}}

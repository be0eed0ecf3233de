#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"

#include <cstddef>

/// \file
/// The text forms of keys, labels and identifiers. Each loader fills all of
/// `size` bytes from zero-terminated wide text; after a failure these bytes
/// are undefined.

namespace Vantry { namespace KLV {

/// The numbers that an object identifier's text starts with, and the bytes
/// that they stand for.
struct OIDPrefix
{
    unsigned char numberCount;
    unsigned char numbers[4];
    unsigned char byteCount;
    unsigned char bytes[5];
};

/// "1.3.53" for 06 0E 2B 34.
inline constexpr OIDPrefix LABEL_OID_PREFIX = {3, {1, 3, 53}, 4, {0x06, 0x0E, 0x2B, 0x34}};

/// "1.3.53.2" for 06 0E 2B 34 02.
inline constexpr OIDPrefix KEY_OID_PREFIX = {4, {1, 3, 53, 2}, 5, {0x06, 0x0E, 0x2B, 0x34, 0x02}};

/// Reads `06.0e.2b`: two hexadecimal digits of either case for each byte and
/// any one character between two bytes.
///
/// \throws Exceptions::InvalidLength unless the text has 3 * size - 1
///         characters.
/// \throws Exceptions::InvalidLabel for a byte that is no number.
VANTRY_EXPORT void loadFromStringDottedBytes(unsigned short const * text, unsigned char * bytes, std::size_t size);

/// Bytes as two lower-case digits each, with "." between them.
VANTRY_EXPORT Templates::wstring toStringDottedBytes(unsigned char const * bytes, std::size_t size);

/// Reads `0x060e2b`, digits of either case.
///
/// \throws Exceptions::InvalidLength unless the text has 2 * size + 2
///         characters.
/// \throws Exceptions::InvalidLabel without "0x" in front, or for a byte that
///         is no number.
VANTRY_EXPORT void loadFromStringHexadecimal(unsigned short const * text, unsigned char * bytes, std::size_t size);

/// "0x" and the bytes as two lower-case digits each.
VANTRY_EXPORT Templates::wstring toStringHexadecimal(unsigned char const * bytes, std::size_t size);

/// Reads the decimal numbers of an object identifier with "." between them:
/// those of `prefix`, then one for each further byte. Bytes that the text
/// doesn't reach are zero. An element that is no number counts as 0.
///
/// \param size  at least the bytes of the prefix
/// \throws Exceptions::InvalidLabel for a number outside 0 to 255, or another
///         prefix.
/// \throws Exceptions::InvalidLength when the text ends with the prefix or
///         inside, or has more numbers than there are bytes.
VANTRY_EXPORT void loadFromStringOID(unsigned short const * text, unsigned char * bytes, std::size_t size,
                                     OIDPrefix const & prefix);

/// The numbers of `prefix`, whatever the first bytes are, and the bytes
/// behind it as decimal numbers, without the zeros at the end.
VANTRY_EXPORT Templates::wstring toStringOID(unsigned char const * bytes, std::size_t size, OIDPrefix const & prefix);

/// Reads `f81d4fae-7dec-11d0-a765-00a0c91e6bf6`, digits of either case, into
/// 16 bytes. Any character that is no digit will do for a hyphen.
///
/// \throws Exceptions::InvalidLength unless the text has 36 characters.
/// \throws Exceptions::InvalidLabel for a byte that is no number, or a digit
///         in a hyphen's place.
VANTRY_EXPORT void loadFromStringRFC4122(unsigned short const * text, unsigned char * bytes);

/// 16 bytes as RFC 4122 writes them, in lower case.
VANTRY_EXPORT Templates::wstring toStringRFC4122(unsigned char const * bytes);

}}

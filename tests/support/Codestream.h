#pragma once

#include "support/Bytes.h"

namespace Vantry { namespace Tests {

/// A JPEG 2000 codestream of one tile with a single byte in it: three
/// components of 12 bits, 1080 lines.
///
/// \param profile  4 for digital cinema
/// \param colours  1 where they are transformed
inline Bytes codestream(unsigned char width, unsigned char profile, unsigned char colours, unsigned char content)
{
    return hex("FF4F FF51 002F 00") + Bytes{profile} + hex("000000") + Bytes{width} +
           hex("00000438 00000000 00000000 00000080 00000438 00000000 00000000 0003 0B0101 0B0101 0B0101"
               "FF52 000C 00 000001") +
           Bytes{colours} + hex("05 04 04 00 01 FF5C 0005 42 1234 FF90 000A 0000 00000000 00 01 FF93 0000") +
           Bytes{content} + hex("FFD9");
}

}}

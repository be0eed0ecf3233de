#pragma once

#include "support/Bytes.h"

namespace Vantry { namespace Tests {

/// Headers of a stream of 4:2:0 frames of 64 by 48 at 25 per second.
inline Bytes const SEQUENCE = hex("000001B3 040030 23 FFFFE018 000001B5 14 82 0001 00 00");
inline Bytes const CLOSED = hex("000001B8 00080040");
inline Bytes const OPEN = hex("000001B8 00080000");
inline Bytes const SLICE = hex("00000101 12345678");

/// A picture of a type, 1 for I, 2 for P, 3 for B, and a structure, 3 for a
/// frame, with a slice.
inline Bytes picture(unsigned type, unsigned reference, unsigned structure = 3)
{
    return hex("00000100") + Bytes{(unsigned char)(reference >> 2), (unsigned char)(reference << 6 | type << 3)} +
           hex("FFF8 000001B5 8FFF") + Bytes{(unsigned char)(0xF0 | structure)} + hex("8180") + SLICE;
}

}}

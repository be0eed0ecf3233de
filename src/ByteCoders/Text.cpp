#include "ByteCoders/Text.h"

namespace Vantry { namespace ByteCoders {

namespace {

// Place of the high byte in an element, the low one being in the other.
int const BIG_ENDIAN_HIGH = 0;
int const LITTLE_ENDIAN_HIGH = 1;

template <int HIGH>
void decode(unsigned char const * source, UInt64 byteCount, unsigned short * destination)
{
    for (UInt64 i = 0; i < byteCount / 2; ++i, source += 2)
        destination[i] = static_cast<unsigned short>(source[HIGH] << 8 | source[1 - HIGH]);
}

template <int HIGH>
void encode(unsigned short const * source, UInt64 elementCount, unsigned char * destination)
{
    for (UInt64 i = 0; i < elementCount; ++i, destination += 2)
    {
        destination[HIGH] = static_cast<unsigned char>(source[i] >> 8);
        destination[1 - HIGH] = static_cast<unsigned char>(source[i]);
    }
}

}

void decodeBigEndian(unsigned char const * source, UInt64 byteCount, unsigned short * destination)
{
    decode<BIG_ENDIAN_HIGH>(source, byteCount, destination);
}

void decodeLittleEndian(unsigned char const * source, UInt64 byteCount, unsigned short * destination)
{
    decode<LITTLE_ENDIAN_HIGH>(source, byteCount, destination);
}

void encodeBigEndian(unsigned short const * source, UInt64 elementCount, unsigned char * destination)
{
    encode<BIG_ENDIAN_HIGH>(source, elementCount, destination);
}

void encodeLittleEndian(unsigned short const * source, UInt64 elementCount, unsigned char * destination)
{
    encode<LITTLE_ENDIAN_HIGH>(source, elementCount, destination);
}

}}

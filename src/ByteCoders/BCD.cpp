#include "ByteCoders/BCD.h"

#include "Platform/Integers.h"

namespace Vantry { namespace ByteCoders {

void encodeBCD(unsigned char * destination, int value)
{
    auto rest = static_cast<UInt32>(value);
    for (int i = 0; i < 4; ++i, rest /= 100)
        destination[i] = static_cast<unsigned char>(rest / 10 % 10 << 4 | rest % 10);
}

void decodeBCD(unsigned char const * data, unsigned short digits, int & value)
{
    UInt32 result = 0;
    for (int i = digits - 1; i >= 0; --i)
        result = result * 10 + (i % 2 == 0 ? data[i / 2] & 0x0F : data[i / 2] >> 4);
    value = static_cast<int>(result);
}

}}

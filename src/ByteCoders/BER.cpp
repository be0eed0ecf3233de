#include "ByteCoders/BER.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Utils/NumberText.h"

namespace Vantry { namespace ByteCoders {

namespace {

unsigned char const LONG_FORM = 0x80;
unsigned char const INDEFINITE_FORM = 0x80;
unsigned char const RESERVED_FORM = 0xFF;

UInt64 const FIRST_LONG_VALUE = 0x80;
UInt64 const TOP_BIT = UInt64(1) << 63;

}

unsigned char calculateBERSize(UInt64 value)
{
    if (value < FIRST_LONG_VALUE || value >= TOP_BIT)
        return 1;

    unsigned char size = 1;
    for (; value != 0; value >>= 8)
        ++size;
    return size;
}

void codeBER(UInt64 value, unsigned char berSize, unsigned char * destination)
{
    if (berSize == 0 || berSize > 9)
        VANTRY_FAIL(InvalidFormat, "Invalid BER size");

    if (berSize == 1)
    {
        destination[0] = static_cast<unsigned char>(value);
        return;
    }

    destination[0] = static_cast<unsigned char>(LONG_FORM | (berSize - 1));
    for (int i = berSize - 1; i > 0; --i, value >>= 8)
        destination[i] = static_cast<unsigned char>(value);

    if (value != 0)
        VANTRY_FAIL(InvalidFormat, "BER size not big enough to hold value length");
}

unsigned char decodeBERSize(unsigned char firstByte)
{
    if (firstByte == INDEFINITE_FORM || firstByte == RESERVED_FORM)
        VANTRY_FAIL(InvalidFormat, "Invalid BER size: 0x" + Utils::hexadecimal(firstByte));

    return firstByte < LONG_FORM ? 1 : static_cast<unsigned char>((firstByte & ~LONG_FORM) + 1);
}

void decodeBER(unsigned char const * data, unsigned char berSize, UInt64 & result)
{
    result = 0;
    decodeBERSize(data[0]);

    if (berSize == 1)
        result = data[0];
    for (int i = 1; i < berSize; ++i)
        result = result << 8 | data[i];
}

}}

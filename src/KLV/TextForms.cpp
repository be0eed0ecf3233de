#include "KLV/TextForms.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidLabel.h"
#include "Exceptions/InvalidLength.h"
#include "Platform/Integers.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace KLV {

namespace {

char const NOT_HEXADECIMAL[] = "Label contains non Hexadecimal characters";

std::size_t const UUID_SIZE = 16;
std::size_t const UUID_TEXT_LENGTH = 36;

// The value of a hexadecimal digit, or -1.
int digitValue(unsigned short character)
{
    if (character >= '0' && character <= '9')
        return character - '0';

    int const lowerCase = character | 0x20;
    return lowerCase >= 'a' && lowerCase <= 'f' ? lowerCase - 'a' + 10 : -1;
}

unsigned char byteOfPair(unsigned short const * text)
{
    int const high = digitValue(text[0]);
    int const low = high < 0 ? -1 : digitValue(text[1]);
    if (low < 0)
        VANTRY_FAIL(InvalidLabel, NOT_HEXADECIMAL);

    return static_cast<unsigned char>(high << 4 | low);
}

// The low byte of the number that starts here, scanned as the C library does
// it: digits where separators should be belong to the number.
unsigned char lowByteOfNumber(unsigned short const * text)
{
    UInt64 number = 0;
    for (int digit = digitValue(*text); digit >= 0; digit = digitValue(*++text))
    {
        if (number >> 60 != 0)
            return 0xFF;
        number = number << 4 | static_cast<UInt64>(digit);
    }
    return static_cast<unsigned char>(number);
}

void checkLength(unsigned short const * text, std::size_t length)
{
    if (Platform::WideTraits::length(text) != length)
        VANTRY_FAIL(InvalidLength, "Not enough data");
}

void appendPair(Templates::wstring & text, unsigned char byte)
{
    static char const DIGITS[] = "0123456789abcdef";
    text += static_cast<unsigned short>(DIGITS[byte >> 4]);
    text += static_cast<unsigned short>(DIGITS[byte & 15]);
}

void appendDecimal(Templates::wstring & text, unsigned char number)
{
    if (number >= 100)
        text += static_cast<unsigned short>('0' + number / 100);
    if (number >= 10)
        text += static_cast<unsigned short>('0' + number / 10 % 10);
    text += static_cast<unsigned short>('0' + number % 10);
}

// Whether RFC 4122 has a hyphen behind this byte.
bool endsUUIDGroup(std::size_t index)
{
    return index == 3 || index == 5 || index == 7 || index == 9;
}

// Takes the elements of a text apart at its dots.
class OIDElements
{
public:
    explicit OIDElements(unsigned short const * text) : next_(text) {}

    bool atEnd() const { return next_ == nullptr; }

    unsigned char take()
    {
        unsigned short const * end = next_;
        while (*end != 0 && *end != '.')
            ++end;

        int const number = numberUpTo(end);
        if (number < 0 || number > 255)
            VANTRY_FAIL(InvalidLabel, "OID contains values not in [0 - 255].");

        next_ = *end == 0 ? nullptr : end + 1;
        return static_cast<unsigned char>(number);
    }

private:
    // Blanks, a sign and digits, as atoi takes them; what follows is passed
    // over. Numbers far off are cut to the nearest one that is out of range.
    int numberUpTo(unsigned short const * end) const
    {
        unsigned short const * text =
            std::find_if(next_, end, [](unsigned short c) { return c != ' ' && (c < '\t' || c > '\r'); });

        bool const negative = text != end && *text == '-';
        if (text != end && (*text == '-' || *text == '+'))
            ++text;

        int number = 0;
        for (; text != end && *text >= '0' && *text <= '9'; ++text)
            number = std::min(number * 10 + (*text - '0'), 256);
        return negative ? -number : number;
    }

    unsigned short const * next_;
};

}

void loadFromStringDottedBytes(unsigned short const * text, unsigned char * bytes, std::size_t size)
{
    checkLength(text, 3 * size - 1);
    for (std::size_t i = 0; i < size; ++i)
    {
        byteOfPair(text + 3 * i);
        bytes[i] = lowByteOfNumber(text + 3 * i);
    }
}

Templates::wstring toStringDottedBytes(unsigned char const * bytes, std::size_t size)
{
    Templates::wstring text;
    text.reserve(3 * size);
    for (std::size_t i = 0; i < size; ++i)
    {
        if (i != 0)
            text += '.';
        appendPair(text, bytes[i]);
    }
    return text;
}

void loadFromStringHexadecimal(unsigned short const * text, unsigned char * bytes, std::size_t size)
{
    checkLength(text, 2 * size + 2);
    if (text[0] != '0' || text[1] != 'x')
        VANTRY_FAIL(InvalidLabel, "Expecting 0x in the start of the plain hexadecimal string representation");

    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = byteOfPair(text + 2 + 2 * i);
}

Templates::wstring toStringHexadecimal(unsigned char const * bytes, std::size_t size)
{
    Templates::wstring text;
    text.reserve(2 * size + 2);
    text += '0';
    text += 'x';
    for (std::size_t i = 0; i < size; ++i)
        appendPair(text, bytes[i]);
    return text;
}

void loadFromStringOID(unsigned short const * text, unsigned char * bytes, std::size_t size, OIDPrefix const & prefix)
{
    OIDElements elements(text);
    for (std::size_t i = 0; i < prefix.numberCount; ++i)
    {
        unsigned char const number = elements.take();
        if (elements.atEnd())
            VANTRY_FAIL(InvalidLength, "Not enough data");
        if (number != prefix.numbers[i])
            VANTRY_FAIL(InvalidLabel, "OID contains initial values not according to type");
    }

    std::copy_n(prefix.bytes, prefix.byteCount, bytes);
    for (std::size_t i = prefix.byteCount; i < size; ++i)
        bytes[i] = elements.atEnd() ? 0 : elements.take();

    if (!elements.atEnd())
        VANTRY_FAIL(InvalidLength, "OID contains more elements than expected");
}

Templates::wstring toStringOID(unsigned char const * bytes, std::size_t size, OIDPrefix const & prefix)
{
    Templates::wstring text;
    text.reserve(4 * size);
    for (std::size_t i = 0; i < prefix.numberCount; ++i)
    {
        if (i != 0)
            text += '.';
        appendDecimal(text, prefix.numbers[i]);
    }

    // Zeros are written once something follows them, so that those at the
    // end are left out.
    std::size_t written = prefix.byteCount;
    for (std::size_t i = prefix.byteCount; i < size; ++i)
        if (bytes[i] != 0)
            for (; written <= i; ++written)
            {
                text += '.';
                appendDecimal(text, bytes[written]);
            }
    return text;
}

void loadFromStringRFC4122(unsigned short const * text, unsigned char * bytes)
{
    checkLength(text, UUID_TEXT_LENGTH);
    for (std::size_t i = 0; i < UUID_SIZE; ++i)
    {
        bytes[i] = byteOfPair(text);
        text += 2;
        if (endsUUIDGroup(i) && digitValue(*text++) >= 0)
            VANTRY_FAIL(InvalidLabel, "Expected a separator that is not an hexadecimal character");
    }
}

Templates::wstring toStringRFC4122(unsigned char const * bytes)
{
    Templates::wstring text;
    text.reserve(UUID_TEXT_LENGTH);
    for (std::size_t i = 0; i < UUID_SIZE; ++i)
    {
        appendPair(text, bytes[i]);
        if (endsUUIDGroup(i))
            text += '-';
    }
    return text;
}

}}

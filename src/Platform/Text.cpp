#include "Platform/Text.h"

namespace Vantry { namespace Platform {

namespace {

using Code = unsigned int;

Code const FIRST_SURROGATE = 0xD800;
Code const FIRST_LOW_SURROGATE = 0xDC00;
Code const LAST_SURROGATE = 0xDFFF;
Code const FIRST_SUPPLEMENTARY = 0x10000;
Code const LAST_CODE = 0x10FFFF;

// A byte that is no UTF-8 stands in wide text as DC00h plus the byte. Only
// bytes from 80h on can be meant.
Code const FIRST_ESCAPE = FIRST_LOW_SURROGATE + 0x80;
Code const LAST_ESCAPE = FIRST_LOW_SURROGATE + 0xFF;

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Decodes the well-formed sequence at `text` and returns its length, or 0
// when there is none: overlong forms and surrogates count as none.
int decodeUTF8(char const * text, Code & code)
{
    auto const first = static_cast<unsigned char>(text[0]);
    if (first < 0x80)
    {
        code = first;
        return 1;
    }

    int const length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4)
        return 0;

    code = first & (0x7F >> length);
    for (int i = 1; i < length; ++i)
    {
        if (!isContinuation(text[i]))
            return 0;
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
    }

    static Code const smallest[] = {0, 0, 0x80, 0x800, FIRST_SUPPLEMENTARY};
    bool const surrogate = code >= FIRST_SURROGATE && code <= LAST_SURROGATE;
    return code < smallest[length] || code > LAST_CODE || surrogate ? 0 : length;
}

void appendUTF16(Templates::wstring & result, Code code)
{
    if (code >= FIRST_SUPPLEMENTARY)
    {
        code -= FIRST_SUPPLEMENTARY;
        result += static_cast<unsigned short>(FIRST_SURROGATE + (code >> 10));
        code = FIRST_LOW_SURROGATE + (code & 0x3FF);
    }
    result += static_cast<unsigned short>(code);
}

void appendUTF8(Templates::string & result, Code code)
{
    int const length = code < 0x80 ? 1 : code < 0x800 ? 2 : code < FIRST_SUPPLEMENTARY ? 3 : 4;
    static Code const marks[] = {0, 0, 0xC0, 0xE0, 0xF0};

    int shift = 6 * (length - 1);
    result += static_cast<char>(marks[length] | code >> shift);
    for (shift -= 6; shift >= 0; shift -= 6)
        result += static_cast<char>(0x80 | (code >> shift & 0x3F));
}

bool isPair(unsigned short high, unsigned short low)
{
    return high >= FIRST_SURROGATE && high < FIRST_LOW_SURROGATE && low >= FIRST_LOW_SURROGATE && low <= LAST_SURROGATE;
}

}

Templates::wstring stringToWstring(char const * text)
{
    Templates::wstring result;
    if (text == nullptr)
        return result;

    while (*text != 0)
    {
        Code code = 0;
        int const length = decodeUTF8(text, code);
        appendUTF16(result, length != 0 ? code : FIRST_LOW_SURROGATE + static_cast<unsigned char>(*text));
        text += length != 0 ? length : 1;
    }

    return result;
}

Templates::string wstringToString(unsigned short const * text)
{
    Templates::string result;
    if (text == nullptr)
        return result;

    for (; *text != 0; ++text)
    {
        if (isPair(text[0], text[1]))
        {
            appendUTF8(result,
                       FIRST_SUPPLEMENTARY + ((text[0] - FIRST_SURROGATE) << 10) + (text[1] - FIRST_LOW_SURROGATE));
            ++text;
        }
        else if (*text >= FIRST_ESCAPE && *text <= LAST_ESCAPE)
            result += static_cast<char>(*text - FIRST_LOW_SURROGATE);
        else
            appendUTF8(result, *text);
    }

    return result;
}

}}

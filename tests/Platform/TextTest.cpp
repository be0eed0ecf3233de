#include "Utils/Text.h"

#include "Platform/WideLiteral.h"

#include <gtest/gtest.h>

#include <clocale>

using namespace Vantry;
using Platform::wide;
using Utils::stringToWstring;
using Utils::wstringToString;

TEST(Text, IsUTF8AndUTF16InAnyLocale)
{
    std::setlocale(LC_ALL, "C");
    std::pair<char const *, Templates::wstring> const CASES[] = {
        {"", wide(u"").text},
        {"a\x7F", wide(u"a\u007F").text},
        {"\xC2\x80\xDF\xBF", wide(u"\u0080\u07FF").text},
        {"\xE0\xA0\x80\xEF\xBF\xBF", wide(u"\u0800\uFFFF").text},
        {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", wide(u"\U00010000\U0010FFFF").text},
        {"\xED\x9F\xBF\xEE\x80\x80", wide(u"\uD7FF\uE000").text},
    };
    for (auto const & [narrow, wideText] : CASES)
    {
        SCOPED_TRACE(narrow);
        EXPECT_TRUE(stringToWstring(narrow) == wideText);
        EXPECT_EQ(wstringToString(wideText), narrow);
    }
    EXPECT_TRUE(Platform::stringToWstring(nullptr).empty());
    EXPECT_TRUE(Platform::wstringToString(nullptr).empty());
}

TEST(Text, BytesThatAreNoUTF8Survive)
{
    char const * const CASES[] = {
        "caf\xE9",              // another character set
        "\x80\xBF\xC0\xAF\xFF", // bytes that start nothing, an overlong form
        "\xC3",                 // cut off
        "\xE2\x82",
        "\xF0\x9F\x98",
        "\xE0\x9F\xBF\xF0\x8F\xBF\xBF",     // overlong
        "\xED\xA0\x80\xED\xBF\xBF",         // surrogates
        "\xF4\x90\x80\x80\xF5\x80\x80\x80", // beyond the last character
        "\xC3\xC3\xA9",
    };
    for (char const * bytes : CASES)
        EXPECT_EQ(wstringToString(stringToWstring(bytes)), bytes);

    EXPECT_EQ(stringToWstring("\xE9")[0], 0xDCE9);
}

#include "Text.h"

#include "Exceptions/BaseException.h"
#include "Platform/Text.h"
#include "Types/UID.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Application {

namespace {

/// U+0080 to U+009F in UTF-8, among them the start of a terminal's commands.
bool isWideControl(std::string_view bytes)
{
    return bytes.size() == 2 && bytes[0] == '\xC2' && static_cast<unsigned char>(bytes[1]) < 0xA0;
}

}

std::string narrow(unsigned short const * text)
{
    return Platform::wstringToString(text).c_str();
}

std::string problemOf(Exceptions::BaseException const & failure)
{
    std::string text = narrow(failure.message());
    for (char const * comparison : {" == ", " != ", " >= ", " <= ", " > ", " < "})
    {
        std::size_t const place = text.find(comparison);
        std::size_t const end = place == std::string::npos ? place : text.find(": ", place);
        if (end != std::string::npos)
            return text.substr(end + 2);
    }
    return text;
}

std::string textOf(Types::UID const & identifier, Types::StringRepresentationEncodingType form)
{
    return narrow(identifier.toString(form).c_str());
}

void appendOneLine(fmt::memory_buffer & text, std::string_view anything)
{
    for (std::size_t i = 0; i < anything.size(); ++i)
        if (isWideControl(anything.substr(i, 2)))
        {
            text.push_back(' ');
            ++i;
        }
        else
            text.push_back(isControl(anything[i]) ? ' ' : anything[i]);
}

std::string hexText(unsigned char const * bytes, std::size_t size, std::size_t limit)
{
    std::string text = "0x";
    fmt::format_to(std::back_inserter(text), "{:02x}", fmt::join(bytes, bytes + std::min(size, limit), ""));
    if (size > limit)
        fmt::format_to(std::back_inserter(text), "... ({} bytes)", size);
    return text;
}

}}

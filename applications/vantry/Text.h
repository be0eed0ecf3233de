#pragma once

#include <fmt/format.h>
#include <string>
#include <string_view>

namespace Vantry {
namespace Exceptions {
class BaseException;
}

namespace Types {
class UID;
enum class StringRepresentationEncodingType : int;
}

namespace Application {

/// The library's text as UTF-8.
std::string narrow(unsigned short const * text);

/// What a failure of the library says. A failed check tells its condition
/// first, in C++, which is left out.
std::string problemOf(Exceptions::BaseException const & failure);

/// An identifier or label in a form that it has.
std::string textOf(Types::UID const & identifier, Types::StringRepresentationEncodingType form);

/// Whether the terminal would do something with it instead of showing it.
inline bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

/// Appends what comes from a file and may hold anything so that a line stays
/// one: blanks stand for control characters.
void appendOneLine(fmt::memory_buffer & text, std::string_view anything);

/// "0x" and the bytes in lower-case hexadecimal. Bytes beyond `limit` are only
/// counted.
std::string hexText(unsigned char const * bytes, std::size_t size, std::size_t limit);

}
}

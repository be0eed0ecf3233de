#pragma once

#include <cstddef>
#include <cwchar>
#include <ios>

namespace Vantry { namespace Platform {

/// Character traits of wide text, whose elements are 16-bit numbers holding
/// UTF-16. The standard library has none for this type that will stay.
struct WideTraits
{
    using char_type = unsigned short;
    using int_type = unsigned int;
    using off_type = std::streamoff;
    using pos_type = std::streampos;
    using state_type = std::mbstate_t;

    static void assign(char_type & target, char_type const & source) noexcept { target = source; }
    static bool eq(char_type left, char_type right) noexcept { return left == right; }
    static bool lt(char_type left, char_type right) noexcept { return left < right; }

    static int compare(char_type const * left, char_type const * right, std::size_t count) noexcept
    {
        for (; count != 0; --count, ++left, ++right)
            if (*left != *right)
                return *left < *right ? -1 : 1;
        return 0;
    }

    static std::size_t length(char_type const * text) noexcept
    {
        std::size_t count = 0;
        while (text[count] != 0)
            ++count;
        return count;
    }

    static char_type const * find(char_type const * text, std::size_t count, char_type const & wanted) noexcept
    {
        for (; count != 0; --count, ++text)
            if (*text == wanted)
                return text;
        return nullptr;
    }

    static char_type * move(char_type * target, char_type const * source, std::size_t count) noexcept
    {
        return count == 0 ? target
                          : static_cast<char_type *>(__builtin_memmove(target, source, count * sizeof(char_type)));
    }

    static char_type * copy(char_type * target, char_type const * source, std::size_t count) noexcept
    {
        return count == 0 ? target
                          : static_cast<char_type *>(__builtin_memcpy(target, source, count * sizeof(char_type)));
    }

    static char_type * assign(char_type * target, std::size_t count, char_type value) noexcept
    {
        for (std::size_t i = 0; i < count; ++i)
            target[i] = value;
        return target;
    }

    static char_type to_char_type(int_type value) noexcept { return static_cast<char_type>(value); }
    static int_type to_int_type(char_type value) noexcept { return value; }
    static bool eq_int_type(int_type left, int_type right) noexcept { return left == right; }
    static int_type eof() noexcept { return static_cast<int_type>(-1); }
    static int_type not_eof(int_type value) noexcept { return value == eof() ? 0 : value; }
};

}}

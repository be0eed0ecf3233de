#pragma once

#include <cstddef>

namespace Vantry { namespace Platform {

/// A `u"..."` literal as wide text, made at compile time.
///
///     constexpr auto NAME = Platform::wide(u"TMP");
///     Platform::getenv(NAME.text, value);
template <std::size_t N>
struct WideLiteral
{
    unsigned short text[N] = {};

    constexpr WideLiteral(char16_t const (&literal)[N])
    {
        for (std::size_t i = 0; i < N; ++i)
            text[i] = static_cast<unsigned short>(literal[i]);
    }

    constexpr operator unsigned short const *() const { return text; }
};

/// Turns a `u"..."` literal into wide text. The result must outlive every
/// pointer taken from it: as a function's argument it lives long enough.
template <std::size_t N>
constexpr WideLiteral<N> wide(char16_t const (&literal)[N])
{
    return WideLiteral<N>(literal);
}

}}

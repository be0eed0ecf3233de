#pragma once

#include "Platform/Integers.h"

#include <type_traits>

namespace Vantry { namespace Platform {

/// The `sizeof(T)` bytes at `bytes` as a number, high byte first.
template <class T>
T readBigEndian(unsigned char const * bytes) noexcept
{
    UInt64 value = 0;
    for (unsigned i = 0; i < sizeof(T); ++i)
        value = value << 8 | bytes[i];
    return static_cast<T>(static_cast<std::make_unsigned_t<T>>(value));
}

/// Writes a number into the `sizeof(T)` bytes at `bytes`, high byte first.
template <class T>
void writeBigEndian(T value, unsigned char * bytes) noexcept
{
    UInt64 rest = static_cast<std::make_unsigned_t<T>>(value);
    for (unsigned i = sizeof(T); i > 0; --i, rest >>= 8)
        bytes[i - 1] = static_cast<unsigned char>(rest);
}

}}

#pragma once

#include "Platform/Integers.h"

#include <cstddef>
#include <type_traits>

namespace Vantry { namespace Platform {

/// A number as it stands in a record of a little-endian format: low byte
/// first, without any alignment.
template <class T>
class LittleEndian
{
public:
    LittleEndian() noexcept : bytes_{} {}
    LittleEndian(T value) noexcept { *this = value; }

    LittleEndian & operator=(T value) noexcept
    {
        UInt64 rest = static_cast<std::make_unsigned_t<T>>(value);
        for (unsigned char & byte : bytes_)
        {
            byte = static_cast<unsigned char>(rest);
            rest >>= 8;
        }
        return *this;
    }

    operator T() const noexcept
    {
        UInt64 value = 0;
        for (std::size_t i = sizeof(T); i > 0; --i)
            value = value << 8 | bytes_[i - 1];
        return static_cast<T>(static_cast<std::make_unsigned_t<T>>(value));
    }

private:
    unsigned char bytes_[sizeof(T)];
};

}}

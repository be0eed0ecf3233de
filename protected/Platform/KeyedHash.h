#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

#include <cstddef>
#include <cstring>

namespace Vantry { namespace Platform {

/// A hash of bytes that whoever makes them can't foresee: SipHash-1-3 under a
/// key that each process draws for itself. No file can be made to fill one
/// chain of a table. The order of hashes must not show anywhere.
class KeyedHash
{
public:
    KeyedHash() noexcept : KeyedHash(processKey()) {}

    KeyedHash & add(UInt64 word) noexcept
    {
        d_ ^= word;
        round();
        a_ ^= word;
        return *this;
    }

    /// Adds the bytes and their number.
    KeyedHash & add(unsigned char const * bytes, std::size_t size) noexcept
    {
        for (std::size_t at = 0; at < size; at += sizeof(UInt64))
        {
            UInt64 word = 0;
            std::memcpy(&word, bytes + at, size - at < sizeof word ? size - at : sizeof word);
            add(word);
        }
        return add(size);
    }

    /// The hash of all that was added.
    UInt64 finish() const noexcept
    {
        KeyedHash end(*this);
        end.c_ ^= 0xFF;
        for (int i = 0; i < 3; ++i)
            end.round();
        return end.a_ ^ end.b_ ^ end.c_ ^ end.d_;
    }

private:
    struct Key
    {
        UInt64 first;
        UInt64 second;
    };

    VANTRY_EXPORT static Key const & processKey() noexcept;

    explicit KeyedHash(Key const & key) noexcept :
        a_(key.first ^ 0x736F6D6570736575),
        b_(key.second ^ 0x646F72616E646F6D),
        c_(key.first ^ 0x6C7967656E657261),
        d_(key.second ^ 0x7465646279746573)
    {
    }

    static UInt64 rotate(UInt64 word, int bits) noexcept { return word << bits | word >> (64 - bits); }

    void round() noexcept
    {
        a_ += b_;
        b_ = rotate(b_, 13) ^ a_;
        a_ = rotate(a_, 32);
        c_ += d_;
        d_ = rotate(d_, 16) ^ c_;
        a_ += d_;
        d_ = rotate(d_, 21) ^ a_;
        c_ += b_;
        b_ = rotate(b_, 17) ^ c_;
        c_ = rotate(c_, 32);
    }

    UInt64 a_;
    UInt64 b_;
    UInt64 c_;
    UInt64 d_;
};

}}

#pragma once

#include "Platform/Integers.h"

#include <cstring>

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

/// Reverses the bits of each byte of a word.
constexpr UInt64 reversedBytes(UInt64 word) noexcept
{
    word = (word & 0x5555555555555555) << 1 | (word >> 1 & 0x5555555555555555);
    word = (word & 0x3333333333333333) << 2 | (word >> 2 & 0x3333333333333333);
    return (word & 0x0F0F0F0F0F0F0F0F) << 4 | (word >> 4 & 0x0F0F0F0F0F0F0F0F);
}

/// Bits of one channel beside its sample.
enum Flag : unsigned char
{
    FLAG_VALIDITY = 1,
    FLAG_USER = 2,
    FLAG_CHANNEL_STATUS = 4,

    /// A channel status block begins; of the first channel of a pair only.
    FLAG_FRAMING = 8
};

/// How two channels at `BITS` bits are packed.
///
/// Once the bits of each byte are reversed, the bytes of a pair make one
/// number, the first byte lowest:
///
///     sample of A   BITS bits
///     V, U, C, F    one bit each
///     sample of B   BITS bits
///     V, U, C, 0    one bit each
template <unsigned int BITS>
struct SamplePair
{
    /// Bytes of a pair: 5, 6 or 7.
    static constexpr unsigned int SIZE = (2 * BITS + 8) / 8;

    static constexpr UInt64 SAMPLE_MASK = (UInt64(1) << BITS) - 1;

    /// The number that a packed pair stands for; reads `SIZE` bytes.
    static UInt64 load(unsigned char const * packed) noexcept
    {
        UInt64 word = 0;
        std::memcpy(&word, packed, SIZE);
        return reversedBytes(word);
    }

    /// Packs a number; writes `SIZE` bytes.
    static void store(UInt64 pair, unsigned char * packed) noexcept
    {
        UInt64 const word = reversedBytes(pair);
        std::memcpy(packed, &word, SIZE);
    }

    static constexpr UInt32 sampleA(UInt64 pair) noexcept { return static_cast<UInt32>(pair & SAMPLE_MASK); }
    static constexpr UInt32 sampleB(UInt64 pair) noexcept
    {
        return static_cast<UInt32>(pair >> (BITS + 4) & SAMPLE_MASK);
    }

    /// A set of `Flag`.
    static constexpr unsigned int flagsA(UInt64 pair) noexcept { return pair >> BITS & 15; }
    static constexpr unsigned int flagsB(UInt64 pair) noexcept { return pair >> (2 * BITS + 4) & 15; }
};

}}}}

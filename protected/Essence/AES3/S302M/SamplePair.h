#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

/// Why a pair at 20 bits is neither made nor turned into another format.
inline char const * const NO_TWENTY_BITS =
    "AES3 source still does not support 20 bit per sample. Please ask the maintainers for it.";

/// The number that 4 to 8 bytes make, the first one lowest.
template <unsigned int SIZE>
constexpr UInt64 numberIn(unsigned char const * bytes) noexcept
{
    static_assert(SIZE >= 4 && SIZE <= 8, "two loads of four bytes cover the number");
    auto const load = [](unsigned char const * from)
    {
        return UInt32(from[0]) | UInt32(from[1]) << 8 | UInt32(from[2]) << 16 | UInt32(from[3]) << 24;
    };
    return UInt64(load(bytes)) | UInt64(load(bytes + SIZE - 4)) << 8 * (SIZE - 4);
}

/// Puts the lowest 4 to 8 bytes of a number, the lowest one first.
template <unsigned int SIZE>
constexpr void putNumber(UInt64 number, unsigned char * bytes) noexcept
{
    static_assert(SIZE >= 4 && SIZE <= 8, "two stores of four bytes cover the number");
    auto const store = [](UInt32 word, unsigned char * to)
    {
        to[0] = static_cast<unsigned char>(word);
        to[1] = static_cast<unsigned char>(word >> 8);
        to[2] = static_cast<unsigned char>(word >> 16);
        to[3] = static_cast<unsigned char>(word >> 24);
    };
    store(static_cast<UInt32>(number), bytes);
    store(static_cast<UInt32>(number >> 8 * (SIZE - 4)), bytes + SIZE - 4);
}

/// Reverses the bits of each byte.
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

    /// A channel status block begins; with the first channel of a pair only.
    FLAG_FRAMING = 8
};

/// How two channels A and B at `BITS` bits are packed.
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
    static constexpr UInt64 SAMPLE_MASK = (UInt64(1) << BITS) - 1;

    /// Bytes of a pair: 5, 6 or 7.
    static constexpr unsigned int SIZE = (2 * BITS + 8) / 8;

    /// The byte that has the flags of A, and the place of F there, ahead of
    /// the others. Those of B are the low half of the last byte.
    static constexpr unsigned int FLAGS_A_BYTE = BITS / 8;
    static constexpr unsigned int FLAGS_A_SHIFT = BITS % 8 == 0 ? 4 : 0;

    /// Bytes of a sample as PCM, whose sound is in the high bits.
    static constexpr unsigned int PCM_SIZE = (BITS + 7) / 8;
    static constexpr unsigned int PCM_SHIFT = PCM_SIZE * 8 - BITS;

    static constexpr UInt64 numberIn(unsigned char const * packed) noexcept
    {
        return reversedBytes(S302M::numberIn<SIZE>(packed));
    }

    static constexpr void put(UInt64 pair, unsigned char * packed) noexcept
    {
        putNumber<SIZE>(reversedBytes(pair), packed);
    }

    static constexpr UInt32 sampleA(UInt64 pair) noexcept { return static_cast<UInt32>(pair & SAMPLE_MASK); }
    static constexpr UInt32 sampleB(UInt64 pair) noexcept { return sampleA(pair >> (BITS + 4)); }

    /// A set of `Flag`.
    static constexpr unsigned int flagsA(UInt64 pair) noexcept { return pair >> BITS & 15; }
    static constexpr unsigned int flagsB(UInt64 pair) noexcept { return flagsA(pair >> (BITS + 4)); }

    /// A pair with all flags clear.
    static constexpr UInt64 pairOf(UInt64 sampleA, UInt64 sampleB) noexcept { return sampleA | sampleB << (BITS + 4); }
};

}}}}

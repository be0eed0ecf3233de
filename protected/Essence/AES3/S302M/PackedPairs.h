#pragma once

#include "Essence/AES3/S302M/SamplePair.h"

#include <algorithm>
#include <cstring>

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

/// Pairs whose bits are reversed in one go, by the word and so by the vector
/// where there are any. They fit into the fastest cache.
UInt64 const PAIRS_AT_ONCE = 256;

/// Bytes for so many pairs, and room to take the last as 8 bytes.
template <unsigned int BITS>
using PairBuffer = unsigned char[PAIRS_AT_ONCE * SamplePair<BITS>::SIZE + 8];

/// Reverses the bits of each byte on the way.
inline void copyReversed(unsigned char const * __restrict from, UInt64 size, unsigned char * __restrict to) noexcept
{
    UInt64 word = 0;
    UInt64 const whole = size - size % sizeof word;
    for (UInt64 i = 0; i < whole; i += sizeof word)
    {
        std::memcpy(&word, from + i, sizeof word);
        word = reversedBytes(word);
        std::memcpy(to + i, &word, sizeof word);
    }
    for (UInt64 i = whole; i < size; ++i)
        to[i] = static_cast<unsigned char>(reversedBytes(from[i]));
}

/// Calls `take` with the number that each packed pair stands for.
template <unsigned int BITS, class Take>
void unpackPairs(unsigned char const * packed, UInt64 count, Take take)
{
    UInt64 const pairSize = SamplePair<BITS>::SIZE;
    PairBuffer<BITS> pairs = {};
    while (count > 0)
    {
        UInt64 const atOnce = std::min(count, PAIRS_AT_ONCE);
        copyReversed(packed, atOnce * pairSize, pairs);
        for (unsigned char const * pair = pairs; pair != pairs + atOnce * pairSize; pair += pairSize)
            take(numberIn<8>(pair));
        packed += atOnce * pairSize;
        count -= atOnce;
    }
}

/// Packs the numbers that `give` gives.
template <unsigned int BITS, class Give>
void packPairs(UInt64 count, Give give, unsigned char * packed)
{
    UInt64 const pairSize = SamplePair<BITS>::SIZE;
    PairBuffer<BITS> pairs;
    while (count > 0)
    {
        UInt64 const atOnce = std::min(count, PAIRS_AT_ONCE);
        for (unsigned char * pair = pairs; pair != pairs + atOnce * pairSize; pair += pairSize)
            putNumber<8>(give(), pair);
        copyReversed(pairs, atOnce * pairSize, packed);
        packed += atOnce * pairSize;
        count -= atOnce;
    }
}

}}}}

#pragma once

#include "Platform/Integers.h"
#include "Platform/LittleEndian.h"

#include <cstring>

/// The eight-channel AES3 element of SMPTE 331M, which D-10 (SMPTE 386M)
/// carries as sound. All numbers are little-endian.
///
///     flags                                          1 byte
///         bit 7: the F, V, U, C and P bits are valid
///         bits 0 to 2: five-sequence count
///     samples in the element                         2 bytes
///     channel valid flags, bit n for channel n       1 byte
///     for each sample: a word for each channel       32 bytes
///
/// A word has 32 bits:
///
///     0 to 2    channel
///     3         F, the frame starts here
///     4 to 27   sample, left-justified where it has less than 24 bits
///     28        V, set where the sample is no sound
///     29        U, user data
///     30        C, channel status
///     31        P, even parity of bits 4 to 31
namespace Vantry { namespace Essence { namespace AES3 { namespace S331M {

unsigned int const CHANNELS = 8;

/// Bytes of a word, and of the words of all channels.
unsigned int const WORD_SIZE = 4;
unsigned int const SAMPLE_SIZE = WORD_SIZE * CHANNELS;

/// Bytes of a sample of one channel as `decodeSample` gives it.
unsigned int const DECODED_SIZE = 3;

/// What an element begins with: 4 bytes.
struct ElementHeader
{
    static constexpr unsigned char FVUCP_VALID = 0x80;
    static constexpr unsigned char SEQUENCE_COUNT = 0x07;

    unsigned char flags;
    Platform::LittleEndian<unsigned short> sampleCount;
    unsigned char channelValidFlags;
};

static_assert(sizeof(ElementHeader) == 4, "the header is laid out as it is stored");

UInt32 const CHANNEL_MASK = CHANNELS - 1;
unsigned int const SAMPLE_SHIFT = 4;
UInt32 const SAMPLE_MASK = 0xFFFFFF;
UInt32 const FRAME_BIT = UInt32(1) << 3;
UInt32 const INVALID_BIT = UInt32(1) << 28;
UInt32 const USER_BIT = UInt32(1) << 29;
UInt32 const CHANNEL_STATUS_BIT = UInt32(1) << 30;
UInt32 const PARITY_BIT = UInt32(1) << 31;

/// A number as it lies in memory where the low byte comes first, and back.
constexpr UInt32 littleEndian(UInt32 number) noexcept
{
    return __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? number : __builtin_bswap32(number);
}

/// The word that stands at `in`.
inline UInt32 wordAt(unsigned char const * in) noexcept
{
    UInt32 word;
    std::memcpy(&word, in, WORD_SIZE);
    return littleEndian(word);
}

/// Puts `word` to `out` and returns the position behind it.
inline unsigned char * putWord(unsigned char * out, UInt32 word) noexcept
{
    word = littleEndian(word);
    std::memcpy(out, &word, WORD_SIZE);
    return out + WORD_SIZE;
}

/// Whether the number of ones in `word` is odd.
inline UInt32 parity(UInt32 word) noexcept
{
    // Bit n tells of the number n.
    UInt32 const ODD_NIBBLES = 0x6996;

    word ^= word >> 16;
    word ^= word >> 8;
    word ^= word >> 4;
    return ODD_NIBBLES >> (word & 0x0F) & 1;
}

/// Two words, the first in the low half, as they come for a pair of channels.
constexpr UInt64 bothWords(UInt32 first, UInt32 second) noexcept
{
    return first | UInt64(second) << 32;
}

constexpr UInt64 bothWords(UInt32 word) noexcept
{
    return bothWords(word, word);
}

/// Two words that have all but channel and F, which the parity leaves out,
/// with the parity of each. What crosses the halves never comes to their low
/// bits.
inline UInt64 withParity(UInt64 words) noexcept
{
    UInt64 ones = words;
    for (unsigned int distance = 16; distance != 0; distance /= 2)
        ones ^= ones >> distance;
    return words | (ones & bothWords(1)) << 31;
}

/// Puts two words to `out` and returns the position behind them.
inline unsigned char * putWords(unsigned char * out, UInt64 words) noexcept
{
    return putWord(putWord(out, static_cast<UInt32>(words)), static_cast<UInt32>(words >> 32));
}

/// Puts one word to `out` and returns the position behind it. `sample` has 24
/// bits, `channel` is 0 to 7.
inline unsigned char * encodeSample(unsigned char * out, unsigned int sample, unsigned char channel, bool f, bool c,
                                    bool u, bool v) noexcept
{
    UInt32 word = (sample & SAMPLE_MASK) << SAMPLE_SHIFT;
    word |= UInt32(v) * INVALID_BIT | UInt32(u) * USER_BIT | UInt32(c) * CHANNEL_STATUS_BIT;
    word |= parity(word) * PARITY_BIT;
    return putWord(out, word | UInt32(f) * FRAME_BIT | (channel & CHANNEL_MASK));
}

/// The sample of a word, which is 800000h where it is no sound, unless
/// `ignoreValid`. What stands above its 24 bits has no meaning.
inline UInt32 sampleOf(UInt32 word, bool ignoreValid) noexcept
{
    UInt32 const NO_SOUND = 0x800000;

    return (word & INVALID_BIT) != 0 && !ignoreValid ? NO_SOUND : word >> SAMPLE_SHIFT;
}

/// Puts the sample of the word at `in` to `out`, 3 bytes with the low one
/// first, and returns the position behind the word. A sample that is no sound
/// comes as 00 00 80, unless `ignoreValid`.
inline unsigned char const * decodeSample(unsigned char * out, unsigned char const * in, bool ignoreValid) noexcept
{
    UInt32 const sample = sampleOf(wordAt(in), ignoreValid);
    for (unsigned int i = 0; i < DECODED_SIZE; ++i)
        out[i] = static_cast<unsigned char>(sample >> 8 * i);
    return in + WORD_SIZE;
}

}}}}

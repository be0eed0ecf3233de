#pragma once

#include "support/Bytes.h"

#include <random>

namespace Vantry { namespace Tests {

/// One channel of a sample: its bits beside the sample are F, C, U and V,
/// from the lowest on.
struct SubFrame
{
    UInt32 sample;
    unsigned int flags;
};

/// A pair of channels as SMPTE 302M packs it, bit by bit: each sample with its
/// lowest bit first, then V, U, C and F.
inline Bytes packedPair(unsigned int bits, SubFrame const & a, SubFrame const & b)
{
    std::vector<bool> stream;
    for (SubFrame const & channel : {a, b})
    {
        for (unsigned int i = 0; i < bits; ++i)
            stream.push_back((channel.sample >> i & 1) != 0);
        for (int i = 3; i >= 0; --i)
            stream.push_back((channel.flags >> i & 1) != 0);
    }

    Bytes bytes(stream.size() / 8);
    for (std::size_t i = 0; i < stream.size(); ++i)
        bytes[i / 8] = static_cast<unsigned char>(bytes[i / 8] << 1 | stream[i]);
    return bytes;
}

/// The payload with the header that it has, or claims.
inline Bytes s302mPacket(unsigned int bits, unsigned int channels, Bytes const & payload, std::size_t size)
{
    return Bytes{static_cast<unsigned char>(size >> 8), static_cast<unsigned char>(size),
                 static_cast<unsigned char>((channels / 2 - 1) << 6), static_cast<unsigned char>((bits - 16) << 2)} +
           payload;
}

inline Bytes s302mPacket(unsigned int bits, unsigned int channels, Bytes const & payload)
{
    return s302mPacket(bits, channels, payload, payload.size());
}

/// PCM of 2 bytes a sample at 16 bits, otherwise of 3 with the sound in the
/// high bits, as packed pairs without flags.
inline Bytes packedPCM(unsigned int bits, Bytes const & pcm)
{
    std::size_t const size = bits == 16 ? 2 : 3;
    auto const sampleAt = [&](std::size_t at)
    {
        UInt32 sample = 0;
        for (std::size_t i = 0; i < size; ++i)
            sample |= UInt32(pcm[at + i]) << 8 * i;
        return SubFrame{sample >> (8 * size - bits), 0};
    };

    Bytes packed;
    for (std::size_t at = 0; at < pcm.size(); at += 2 * size)
        packed += packedPair(bits, sampleAt(at), sampleAt(at + size));
    return packed;
}

/// Random PCM of whole samples of so many bits.
template <class Random>
Bytes randomPCM(unsigned int bits, std::size_t samples, Random & random)
{
    Bytes pcm(samples * (bits == 16 ? 2 : 3));
    for (std::size_t i = 0; i < pcm.size(); ++i)
        pcm[i] = static_cast<unsigned char>(bits == 20 && i % 3 == 0 ? random() & 0xF0 : random());
    return pcm;
}

}}

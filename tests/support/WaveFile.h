#pragma once

#include "support/Bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Vantry { namespace Tests {

/// A number in `size` bytes, low byte first.
inline Bytes littleEndian(UInt64 value, int size)
{
    Bytes bytes;
    for (int i = 0; i < size; ++i)
        bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
    return bytes;
}

/// A chunk with the length that its value has, or claims.
inline Bytes waveChunk(std::string const & id, Bytes const & value, UInt64 length)
{
    return Bytes(id.begin(), id.end()) + littleEndian(length, 4) + value;
}

inline Bytes waveChunk(std::string const & id, Bytes const & value)
{
    return waveChunk(id, value, value.size());
}

/// Two channels of 16 bits at 48000 Hz.
inline Bytes const PCM_FORMAT = hex("0100 0200 80BB0000 00EE0200 0400 1000");

inline Bytes waveFile(Bytes const & chunks, std::string const & form = "RIFF")
{
    return Bytes(form.begin(), form.end()) + littleEndian(4 + chunks.size(), 4) + hex("57415645") + chunks;
}

/// What is in the data chunk of a wave file, which ends it.
inline Bytes samplesOf(Bytes const & wave)
{
    Bytes const id = {'d', 'a', 't', 'a'};
    auto const found = std::search(wave.begin(), wave.end(), id.begin(), id.end());
    auto const start = found + 8;
    EXPECT_EQ(UInt64(wave.end() - start), found[4] + found[5] * 0x100u + found[6] * 0x10000u);
    return Bytes(start, wave.end());
}

}}

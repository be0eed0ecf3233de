#pragma once

#include "Platform/LittleEndian.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Essence { namespace AVI {

/// Four characters as a number, the first one lowest.
constexpr unsigned int fourCC(char const (&characters)[5]) noexcept
{
    unsigned int code = 0;
    for (int i = 3; i >= 0; --i)
        code = code << 8 | static_cast<unsigned char>(characters[i]);
    return code;
}

/// The "avih" chunk: 56 bytes.
struct MainHeader
{
    Platform::LittleEndian<unsigned int> microSecPerFrame;
    Platform::LittleEndian<unsigned int> maxBytesPerSec;
    Platform::LittleEndian<unsigned int> paddingGranularity;
    Platform::LittleEndian<unsigned int> flags;
    Platform::LittleEndian<unsigned int> totalFrames;
    Platform::LittleEndian<unsigned int> initialFrames;
    Platform::LittleEndian<unsigned int> streams;
    Platform::LittleEndian<unsigned int> suggestedBufferSize;
    Platform::LittleEndian<unsigned int> width;
    Platform::LittleEndian<unsigned int> height;
    Platform::LittleEndian<unsigned int> reserved[4];
};

/// The "strh" chunk: 48 bytes, and a rectangle that old writers leave out.
struct StreamHeader
{
    Platform::LittleEndian<unsigned int> type;
    Platform::LittleEndian<unsigned int> handler;
    Platform::LittleEndian<unsigned int> flags;
    Platform::LittleEndian<unsigned short> priority;
    Platform::LittleEndian<unsigned short> language;
    Platform::LittleEndian<unsigned int> initialFrames;

    /// `rate / scale` samples, pictures among them, make a second.
    Platform::LittleEndian<unsigned int> scale;
    Platform::LittleEndian<unsigned int> rate;

    Platform::LittleEndian<unsigned int> start;
    Platform::LittleEndian<unsigned int> length;
    Platform::LittleEndian<unsigned int> suggestedBufferSize;
    Platform::LittleEndian<unsigned int> quality;
    Platform::LittleEndian<unsigned int> sampleSize;
};

static_assert(sizeof(MainHeader) == 56 && sizeof(StreamHeader) == 48, "records are laid out as they are stored");

/// What a stream of an AVI file is.
struct STREAMInfo
{
    /// Four characters, such as "vids", "auds" or "iavs", and what the stream
    /// is to be decoded by.
    unsigned int type = 0;
    unsigned int handler = 0;

    /// The wave format tag of sound, the compression of pictures, the handler
    /// of both interleaved; 0 for others.
    unsigned int format = 0;

    /// Two digits, the first one lowest: what the identifiers of the stream's
    /// chunks begin with.
    unsigned short streamNumber = 0;

    /// The "strf" chunk.
    Templates::vector<unsigned char> formatBlock;

    StreamHeader header;
};

}}}

#pragma once

#include "Platform/Export.h"
#include "Platform/LittleEndian.h"

namespace Vantry { namespace Essence { namespace Wave {

/// Values of `wFormatTag`.
unsigned short const FORMAT_TAG_PCM = 1;
unsigned short const FORMAT_TAG_EXTENSIBLE = 0xFFFE;

/// What every "fmt " chunk of a wave file begins with: 14 bytes.
struct FormatBaseChunk
{
    Platform::LittleEndian<unsigned short> wFormatTag;
    Platform::LittleEndian<unsigned short> channels;
    Platform::LittleEndian<unsigned int> samplesPerSecond;
    Platform::LittleEndian<unsigned int> averageBytesPerSecond;

    /// Bytes of one sample of all channels.
    Platform::LittleEndian<unsigned short> blockAlign;
};

/// The "fmt " chunk of plain PCM: 16 bytes.
struct FormatPCMChunk : FormatBaseChunk
{
    /// Bits that a sample takes up, a multiple of 8.
    Platform::LittleEndian<unsigned short> bitsPerSample;
};

/// The "fmt " chunk of format tag 0xFFFE: 40 bytes.
struct FormatExtensibleChunk : FormatPCMChunk
{
    /// Bytes behind this field: 22.
    Platform::LittleEndian<unsigned short> extensionSize;

    /// Bits of a sample that carry sound.
    Platform::LittleEndian<unsigned short> validBitsPerSample;

    /// Loudspeaker positions; 0 for none in particular.
    Platform::LittleEndian<unsigned int> channelMask;

    /// The kind of essence, a GUID in its stored byte order.
    unsigned char subFormat[16];
};

static_assert(sizeof(FormatBaseChunk) == 14 && sizeof(FormatPCMChunk) == 16 && sizeof(FormatExtensibleChunk) == 40,
              "records are laid out as they are stored");

/// The `subFormat` of PCM.
extern VANTRY_EXPORT unsigned char const FORMAT_EXTENSIBLE_PCM_LABEL[16];

}}}

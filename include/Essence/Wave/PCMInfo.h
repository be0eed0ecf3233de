#pragma once

#include "Platform/Export.h"
#include "Templates/Rational.h"

namespace Vantry { namespace Essence { namespace Wave {

/// What kind of PCM a stream is.
struct VANTRY_EXPORT PCMInfo
{
    /// Bits that a sample takes up, and those of them that carry sound.
    unsigned char bitsPerSample = 0;
    unsigned char validBitsPerSample = 0;

    unsigned char numberOfChannels = 0;

    /// In hertz.
    Templates::Rational<int> samplingFrequency;

    bool operator==(PCMInfo const & other) const noexcept;
    bool operator!=(PCMInfo const & other) const noexcept { return !(*this == other); }

    /// By the fields in their order.
    bool operator<(PCMInfo const & other) const noexcept;
};

}}}

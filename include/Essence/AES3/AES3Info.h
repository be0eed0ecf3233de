#pragma once

#include "Essence/AES3/ChannelStatus.h"

namespace Vantry { namespace Essence { namespace AES3 {

/// What kind of sound an AES3 stream carries.
struct VANTRY_EXPORT AES3Info
{
    /// The data type of PCM.
    static constexpr Int32 PCM = -1;

    /// 16, 20 or 24.
    unsigned char bitsPerSample = 0;

    unsigned char channels = 0;

    /// Bytes that one sample of all channels takes as PCM.
    unsigned char bytesPerSampleGroup = 0;

    /// In hertz.
    Templates::Rational<int> samplingFrequency = 48000;

    bool lockIndication = false;
    UseOfAuxiliarySampleBits useOfAuxiliarySampleBits = AUXILIARY_BITS_NOT_DEFINED;
    ChannelMode channelMode = CHANNEL_MODE_NOT_INDICATED;
    AudioSignalEmphasis audioSignalEmphasis = EMPHASIS_NOT_INDICATED;
    ChannelStatusDataFormat channelStatus;

    /// PCM, or the data type of SMPTE ST 338 that was found: 1 for AC-3, 4, 5
    /// and 8 for MPEG audio, 28 for Dolby E.
    Int32 dataType = PCM;

    bool operator==(AES3Info const & other) const noexcept;
    bool operator!=(AES3Info const & other) const noexcept { return !(*this == other); }

    /// By the fields in their order.
    bool operator<(AES3Info const & other) const noexcept;
};

}}}

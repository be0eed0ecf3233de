#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace Essence { namespace AES3 {

/// Pre-emphasis that was applied to the sound.
enum AudioSignalEmphasis : unsigned char
{
    EMPHASIS_NOT_INDICATED = 0,
    EMPHASIS_NONE = 1,
    EMPHASIS_50_15 = 3,
    EMPHASIS_CCITT_J17 = 7
};

/// How the two channels of an interface belong together.
enum ChannelMode : unsigned char
{
    CHANNEL_MODE_NOT_INDICATED = 0,
    CHANNEL_MODE_DOUBLE_FREQUENCY_LEFT = 1,
    CHANNEL_MODE_STEREO = 2,
    CHANNEL_MODE_MONO = 4,
    CHANNEL_MODE_TWO_CHANNELS = 8,
    CHANNEL_MODE_DOUBLE_FREQUENCY_RIGHT = 9,
    CHANNEL_MODE_PRIMARY_SECONDARY = 12,
    CHANNEL_MODE_DOUBLE_FREQUENCY_MONO = 14,
    CHANNEL_MODE_MULTICHANNEL = 15
};

/// What the user bits of the sub-frames carry.
enum UserBitsManagement : unsigned char
{
    USER_BITS_NONE = 0,
    USER_BITS_IEC60958 = 2,
    USER_BITS_AES18 = 4,
    USER_BITS_BLOCK_OF_192 = 8,
    USER_BITS_USER_DEFINED = 12
};

/// What the four auxiliary bits of a sub-frame are for.
enum UseOfAuxiliarySampleBits : unsigned char
{
    /// Not defined; samples have up to 20 bits.
    AUXILIARY_BITS_NOT_DEFINED = 0,

    /// A coordination signal; samples have up to 20 bits.
    AUXILIARY_BITS_COORDINATION = 2,

    /// Part of the samples, which have up to 24 bits.
    AUXILIARY_BITS_AUDIO = 4,

    AUXILIARY_BITS_USER_DEFINED = 6
};

/// A channel status block as it is stored. Bit 0 of byte 0 comes first on an
/// interface, and bits are numbered from the least significant.
struct VANTRY_EXPORT ChannelStatusDataFormat
{
    static constexpr unsigned int BITS = 192;

    bool operator==(ChannelStatusDataFormat const & other) const noexcept;
    bool operator<(ChannelStatusDataFormat const & other) const noexcept;

    unsigned char bytes[BITS / 8] = {};
};

static_assert(sizeof(ChannelStatusDataFormat) == 24, "a block is laid out as it is stored");

/// The channel status of one channel (AES3 clause 6): what its sound is.
///
///     byte  bits
///     0     0    professional use
///           1    clear for linear PCM
///           2-4  emphasis
///           5    lock indication
///           6-7  sampling frequency
///     1     0-3  channel mode
///           4-7  user bits management
///     2     0-2  use of auxiliary bits
///           3-5  source word length
///     4     3-6  sampling frequency, extended
///           7    sampling frequency scaled by 1000/1001
///     23         CRC
class VANTRY_EXPORT ChannelStatus
{
public:
    VANTRY_CLASS_ALLOCATION

    /// All bits are clear.
    ChannelStatus() noexcept = default;

    bool professionalUse() const noexcept;
    void professionalUse(bool value) noexcept;

    bool linearPCM() const noexcept;
    void linearPCM(bool value) noexcept;

    AudioSignalEmphasis audioSignalEmphasis() const noexcept;
    void audioSignalEmphasis(AudioSignalEmphasis value) noexcept;

    bool lockIndication() const noexcept;
    void lockIndication(bool value) noexcept;

    ChannelMode channelMode() const noexcept;
    void channelMode(ChannelMode value) noexcept;

    UserBitsManagement userBitsManagement() const noexcept;
    void userBitsManagement(UserBitsManagement value) noexcept;

    UseOfAuxiliarySampleBits useOfAuxiliarySampleBits() const noexcept;

    /// Keeps the source word length in bits, if the new range has it.
    void useOfAuxiliarySampleBits(UseOfAuxiliarySampleBits value) noexcept;

    /// In bits: 16 to 20, or 20 to 24 where the auxiliary bits are part of
    /// the samples; the most of the range where none is indicated. 0 for
    /// auxiliary bits of another use.
    unsigned char sourceWordLength() const noexcept;

    /// A length out of range is stored as not indicated. Nothing is stored
    /// for auxiliary bits of another use.
    void sourceWordLength(unsigned char bits) noexcept;

    /// Whether a source word length is indicated.
    bool isSourceWordLenghtLoaded() const noexcept;

    /// In hertz, by the four rates of byte 0: 48000 where none is indicated,
    /// so the extended rates too. 1000/1001 of that where bit 7 of byte 4 is
    /// set.
    Templates::Rational<int> samplingFrequency() const;

    /// One of 22050, 24000, 32000, 44100, 48000, 88200, 96000, 176400 and
    /// 192000 hertz, or 1000/1001 of one.
    ///
    /// \throws Exceptions::InvalidValue "Invalid source word length" for any
    ///         other; the block then is as it was.
    void samplingFrequency(Templates::Rational<int> const & hertz);

    /// As stored: it is neither computed nor checked.
    unsigned char crc() const noexcept;
    void crc(unsigned char value) noexcept;

    /// One of the 192 bits, in the order of the interface.
    bool bit(unsigned int position) const noexcept;
    void bit(unsigned int position, bool value) noexcept;

    ChannelStatusDataFormat const & data() const noexcept { return data_; }

    /// Copies the block into a buffer.
    ///
    /// \throws Exceptions::InvalidLength "Buffer is not large enough to store
    ///         the ChannelStatus data." for one below 24 bytes.
    void serialize(unsigned char * buffer, UInt64 bufferSize) const;

private:
    ChannelStatusDataFormat data_;
};

}}}

#include "Essence/AES3/ChannelStatus.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidValue.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace Vantry { namespace Essence { namespace AES3 {

namespace {

// Bits of one byte of the block.
struct Field
{
    unsigned int byte;
    unsigned int lowestBit;
    unsigned int bits;

    constexpr unsigned int mask() const noexcept { return ((1u << bits) - 1) << lowestBit; }

    unsigned int of(ChannelStatusDataFormat const & data) const noexcept
    {
        return (data.bytes[byte] & mask()) >> lowestBit;
    }

    void put(ChannelStatusDataFormat & data, unsigned int value) const noexcept
    {
        data.bytes[byte] = static_cast<unsigned char>((data.bytes[byte] & ~mask()) | (value << lowestBit & mask()));
    }
};

constexpr Field PROFESSIONAL_USE{0, 0, 1};
constexpr Field NOT_LINEAR_PCM{0, 1, 1};
constexpr Field EMPHASIS{0, 2, 3};
constexpr Field LOCK_INDICATION{0, 5, 1};
constexpr Field FREQUENCY{0, 6, 2};
constexpr Field CHANNEL_MODE{1, 0, 4};
constexpr Field USER_BITS{1, 4, 4};
constexpr Field AUXILIARY_BITS{2, 0, 3};
constexpr Field WORD_LENGTH{2, 3, 3};
constexpr Field EXTENDED_FREQUENCY{4, 3, 4};
constexpr Field IS_SCALED{4, 7, 1};
constexpr Field CRC{23, 0, 8};

// Where samples have up to 20 bits.
unsigned char const LENGTH_OF_CODE[] = {20, 16, 18, 20, 19, 20, 17, 20};

unsigned int const SHORTEST = 16;
unsigned char const CODE_OF_LENGTH[] = {1, 6, 2, 4, 5};

// Bits by which samples are longer.
unsigned int extraBits(UseOfAuxiliarySampleBits use) noexcept
{
    return use == AUXILIARY_BITS_AUDIO ? 4 : 0;
}

bool hasWordLength(UseOfAuxiliarySampleBits use) noexcept
{
    return use == AUXILIARY_BITS_NOT_DEFINED || use == AUXILIARY_BITS_COORDINATION || use == AUXILIARY_BITS_AUDIO;
}

struct Rate
{
    int hertz;
    unsigned int code;
    unsigned int extendedCode;
};

Rate const RATES[] = {
    {48000, 2, 0},  {44100, 1, 0}, {32000, 3, 0},  {24000, 0, 1},   {96000, 0, 2},
    {192000, 0, 3}, {22050, 0, 9}, {88200, 0, 10}, {176400, 0, 11},
};

Templates::Rational<int> scaled(int hertz, bool isScaled)
{
    return isScaled ? Templates::Rational<int>(hertz * 1000, 1001) : Templates::Rational<int>(hertz);
}

}

bool ChannelStatusDataFormat::operator==(ChannelStatusDataFormat const & other) const noexcept
{
    return std::memcmp(bytes, other.bytes, sizeof bytes) == 0;
}

bool ChannelStatusDataFormat::operator<(ChannelStatusDataFormat const & other) const noexcept
{
    return std::memcmp(bytes, other.bytes, sizeof bytes) < 0;
}

bool ChannelStatus::professionalUse() const noexcept
{
    return PROFESSIONAL_USE.of(data_) != 0;
}

void ChannelStatus::professionalUse(bool value) noexcept
{
    PROFESSIONAL_USE.put(data_, value);
}

bool ChannelStatus::linearPCM() const noexcept
{
    return NOT_LINEAR_PCM.of(data_) == 0;
}

void ChannelStatus::linearPCM(bool value) noexcept
{
    NOT_LINEAR_PCM.put(data_, !value);
}

AudioSignalEmphasis ChannelStatus::audioSignalEmphasis() const noexcept
{
    return static_cast<AudioSignalEmphasis>(EMPHASIS.of(data_));
}

void ChannelStatus::audioSignalEmphasis(AudioSignalEmphasis value) noexcept
{
    EMPHASIS.put(data_, value);
}

bool ChannelStatus::lockIndication() const noexcept
{
    return LOCK_INDICATION.of(data_) != 0;
}

void ChannelStatus::lockIndication(bool value) noexcept
{
    LOCK_INDICATION.put(data_, value);
}

ChannelMode ChannelStatus::channelMode() const noexcept
{
    return static_cast<ChannelMode>(CHANNEL_MODE.of(data_));
}

void ChannelStatus::channelMode(ChannelMode value) noexcept
{
    CHANNEL_MODE.put(data_, value);
}

UserBitsManagement ChannelStatus::userBitsManagement() const noexcept
{
    return static_cast<UserBitsManagement>(USER_BITS.of(data_));
}

void ChannelStatus::userBitsManagement(UserBitsManagement value) noexcept
{
    USER_BITS.put(data_, value);
}

UseOfAuxiliarySampleBits ChannelStatus::useOfAuxiliarySampleBits() const noexcept
{
    return static_cast<UseOfAuxiliarySampleBits>(AUXILIARY_BITS.of(data_));
}

void ChannelStatus::useOfAuxiliarySampleBits(UseOfAuxiliarySampleBits value) noexcept
{
    unsigned char const length = sourceWordLength();
    AUXILIARY_BITS.put(data_, value);
    sourceWordLength(length);
}

unsigned char ChannelStatus::sourceWordLength() const noexcept
{
    UseOfAuxiliarySampleBits const use = useOfAuxiliarySampleBits();
    if (!hasWordLength(use))
        return 0;
    return static_cast<unsigned char>(LENGTH_OF_CODE[WORD_LENGTH.of(data_)] + extraBits(use));
}

void ChannelStatus::sourceWordLength(unsigned char bits) noexcept
{
    UseOfAuxiliarySampleBits const use = useOfAuxiliarySampleBits();
    if (!hasWordLength(use))
        return;

    unsigned int const index = bits - extraBits(use) - SHORTEST;
    WORD_LENGTH.put(data_, index < std::size(CODE_OF_LENGTH) ? CODE_OF_LENGTH[index] : 0u);
}

bool ChannelStatus::isSourceWordLenghtLoaded() const noexcept
{
    return WORD_LENGTH.of(data_) != 0;
}

Templates::Rational<int> ChannelStatus::samplingFrequency() const
{
    unsigned int const code = FREQUENCY.of(data_);
    Rate const * const rate = std::find_if(std::begin(RATES), std::end(RATES),
                                           [code](Rate const & candidate) { return candidate.code == code; });
    return scaled(code != 0 ? rate->hertz : 48000, IS_SCALED.of(data_) != 0);
}

// In lowest terms the denominator of a scaled rate is 1001 or a part of it.
void ChannelStatus::samplingFrequency(Templates::Rational<int> const & hertz)
{
    bool const isScaled = hertz.denominator() != 1;
    Rate const * const rate =
        std::find_if(std::begin(RATES), std::end(RATES),
                     [&](Rate const & candidate) { return scaled(candidate.hertz, isScaled) == hertz; });
    if (rate == std::end(RATES))
        VANTRY_FAIL(InvalidValue, "Invalid source word length");

    FREQUENCY.put(data_, rate->code);
    EXTENDED_FREQUENCY.put(data_, rate->extendedCode);
    IS_SCALED.put(data_, isScaled);
}

unsigned char ChannelStatus::crc() const noexcept
{
    return static_cast<unsigned char>(CRC.of(data_));
}

void ChannelStatus::crc(unsigned char value) noexcept
{
    CRC.put(data_, value);
}

bool ChannelStatus::bit(unsigned int position) const noexcept
{
    return Field{position / 8, position % 8, 1}.of(data_) != 0;
}

void ChannelStatus::bit(unsigned int position, bool value) noexcept
{
    Field{position / 8, position % 8, 1}.put(data_, value);
}

void ChannelStatus::serialize(unsigned char * buffer, UInt64 bufferSize) const
{
    VANTRY_CHECK(bufferSize >= sizeof (ChannelStatusDataFormat), InvalidLength,
                 "Buffer is not large enough to store the ChannelStatus data.");
    std::memcpy(buffer, data_.bytes, sizeof(ChannelStatusDataFormat));
}

}}}

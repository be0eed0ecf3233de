#include "Essence/AES3/S302M/Header.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

namespace {

// The bits of `byte` under the mask become those of `value`.
void put(unsigned char & byte, unsigned int mask, unsigned int value) noexcept
{
    byte = static_cast<unsigned char>((byte & ~mask) | (value & mask));
}

}

unsigned short Header::audioPacketSize() const noexcept
{
    return static_cast<unsigned short>(bytes_[0] << 8 | bytes_[1]);
}

void Header::audioPacketSize(unsigned short value) noexcept
{
    bytes_[0] = static_cast<unsigned char>(value >> 8);
    bytes_[1] = static_cast<unsigned char>(value);
}

unsigned char Header::numberOfChannels() const noexcept
{
    return static_cast<unsigned char>(((bytes_[2] >> 6) + 1) * 2);
}

void Header::numberOfChannels(unsigned char value) noexcept
{
    if (value == 2 || value == 4 || value == 6 || value == 8)
        put(bytes_[2], 0xC0, (value / 2u - 1) << 6);
}

unsigned char Header::channelIdentification() const noexcept
{
    return static_cast<unsigned char>(bytes_[2] << 2 | bytes_[3] >> 6);
}

void Header::channelIdentification(unsigned char value) noexcept
{
    put(bytes_[2], 0x3F, value >> 2);
    put(bytes_[3], 0xC0, static_cast<unsigned int>(value) << 6);
}

unsigned char Header::bitsPerSample() const
{
    unsigned int const code = bytes_[3] >> 4 & 3;
    if (code == 3)
        VANTRY_FAIL(InvalidFormat, "AES3 S302M stream contains an invalid number of bits per sample");
    return static_cast<unsigned char>(16 + 4 * code);
}

void Header::bitsPerSample(unsigned char value) noexcept
{
    if (value == 16 || value == 20 || value == 24)
        put(bytes_[3], 0x30, (value / 4u - 4) << 4);
}

}}}}

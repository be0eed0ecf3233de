#pragma once

#include "Platform/Export.h"

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

/// The header of a packet of SMPTE 302M: 4 bytes, laid out as they are stored.
///
///     byte  bits
///     0-1        audio packet size, high byte first
///     2     7-6  number of channels: 2, 4, 6, 8
///           5-0  channel identification, high six bits
///     3     7-6  channel identification, low two bits
///           5-4  bits per sample: 16, 20, 24
///           3-0  not used
///
/// Setters leave their field as it stands for a value that it can't hold.
class VANTRY_EXPORT Header
{
public:
    /// All bits are clear: two channels of 16 bits, and no payload.
    Header() noexcept = default;

    /// Bytes of a header.
    static constexpr unsigned int size() noexcept { return 4; }

    unsigned char const * data() const noexcept { return bytes_; }

    /// Bytes of payload behind the header.
    unsigned short audioPacketSize() const noexcept;
    void audioPacketSize(unsigned short value) noexcept;

    unsigned char numberOfChannels() const noexcept;
    void numberOfChannels(unsigned char value) noexcept;

    unsigned char channelIdentification() const noexcept;
    void channelIdentification(unsigned char value) noexcept;

    /// \throws Exceptions::InvalidFormat "AES3 S302M stream contains an
    ///         invalid number of bits per sample" for code 3.
    unsigned char bitsPerSample() const;
    void bitsPerSample(unsigned char value) noexcept;

private:
    unsigned char bytes_[4] = {};
};

static_assert(sizeof(Header) == Header::size(), "a header is laid out as it is stored");

}}}}

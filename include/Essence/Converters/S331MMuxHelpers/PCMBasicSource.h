#pragma once

#include "Essence/AES3/ChannelStatus.h"
#include "Essence/AES3/ChannelStatusDumper.h"
#include "Essence/Converters/S331MMuxHelpers/EssenceSource.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

/// How the bytes of a PCM stream make samples.
struct PCMLayout
{
    /// Bits that a sample of one channel takes up, and the low ones of them
    /// that are taken over.
    unsigned short bitsPerSample = 0;
    unsigned short validBitsPerSample = 0;

    unsigned short channels = 0;

    /// In hertz.
    unsigned int samplingFrequency = 0;

    /// Bytes of one sample of all channels.
    unsigned short blockAlign = 0;
};

/// An input of little-endian PCM, whatever it comes from. It makes up the
/// channel status; U and V are never set. Of an odd number of channels the
/// last is left out.
class VANTRY_EXPORT PCMBasicSource : public EssenceSource
{
public:
    ~PCMBasicSource() override;

    /// \throws Exceptions::InvalidValue "Invalid source word length" for a
    ///         sampling frequency that AES3 has no code for.
    void info(unsigned char & channels, unsigned char & bits) override;

    bool fetch(unsigned short count) override;
    void encode(unsigned char * out, unsigned char const * blocks, UInt64 count) override;

    /// Says of the sound what the layout tells.
    virtual void describe(AES3::ChannelStatus & status) const;

protected:
    /// \throws Exceptions::InvalidValue for a layout that doesn't give each
    ///         channel 1 to 3 bytes, or that has more than 24 bits.
    PCMBasicSource(unsigned char firstChannel, PCMLayout const & layout);

private:
    static constexpr unsigned int STATUS_BITS = AES3::ChannelStatusDataFormat::BITS;

    void loadStatusBits();

    template <unsigned int SIZE>
    void encodeBlocks(unsigned char * out, unsigned char const * blocks, UInt64 count) noexcept;

    PCMLayout layout_;
    UInt32 validMask_;
    AES3::ChannelStatus status_;
    AES3::ChannelStatusDumper dumper_;

    // F and C of each sample of a block of channel status, where they stand
    // in the words of a pair. The status doesn't change, so it is dumped once.
    UInt64 statusBits_[STATUS_BITS];
    unsigned int statusPosition_;
};

}}}}

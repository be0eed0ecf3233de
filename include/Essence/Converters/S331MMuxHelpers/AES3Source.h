#pragma once

#include "Essence/Converters/S331MMuxHelpers/EssenceSource.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

/// An input of AES3 packets (SMPTE 302M). All packets have the channels and
/// bits of the first. F, C, U and V are taken over; the second channel of a
/// pair has the F of the first.
class VANTRY_EXPORT AES3Source : public EssenceSource
{
public:
    AES3Source(unsigned char firstChannel, Templates::SharedPtr<DataIO::SliceSource> stream);
    ~AES3Source() override;

    /// Looks at the first header.
    ///
    /// \throws Exceptions::NotEnoughData for a stream without one;
    ///         Exceptions::InvalidFormat for bits that SMPTE 302M doesn't have.
    void info(unsigned char & channels, unsigned char & bits) override;

    /// Buffers a packet, whatever `count` says; false for a packet that is
    /// cut off too, whose whole samples are kept.
    ///
    /// \throws Exceptions::InvalidFormat "A AES packet contains a number of
    ///         bytes that is not a multiple of the sample size."
    bool fetch(unsigned short count) override;

    DataIO::SliceReader & source() override;
    DataIO::SliceReader const & source() const override;

    /// \throws Exceptions::NotImplemented for 20 bits.
    void encode(unsigned char * out, unsigned char const * blocks, UInt64 count) override;

private:
    bool nextPacket();

    template <unsigned int BITS>
    void encodeBlocks(unsigned char * out, unsigned char const * blocks, UInt64 count) const noexcept;

    DataIO::SliceReader reader_;

    // Bytes of the present packet that aren't buffered yet.
    UInt64 payloadLeft_;
};

}}}}

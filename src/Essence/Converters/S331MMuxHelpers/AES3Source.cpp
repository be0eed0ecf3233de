#include "Essence/Converters/S331MMuxHelpers/AES3Source.h"

#include "Essence/AES3/S302M/Header.h"
#include "Essence/AES3/S302M/SamplePair.h"
#include "Essence/RecordIn.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/NotImplemented.h"

#include <utility>

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

namespace S331M = AES3::S331M;
using AES3::S302M::Header;
using AES3::S302M::SamplePair;

namespace {

// The words of a pair, without channel and F, from its two sub-frames:
// sample, V, U and C follow each other in both.
template <unsigned int BITS>
UInt64 wordsOf(UInt64 pair) noexcept
{
    UInt64 const MASK = (UInt64(1) << (BITS + 3)) - 1;
    unsigned int const SHIFT = S331M::SAMPLE_SHIFT + 24 - BITS;
    UInt64 const subFrames = (pair & MASK) | (pair >> (BITS + 4) & MASK) << 32;
    return S331M::withParity(subFrames << SHIFT);
}

}

AES3Source::AES3Source(unsigned char firstChannel, Templates::SharedPtr<DataIO::SliceSource> stream) :
    EssenceSource(firstChannel), reader_(std::move(stream)), payloadLeft_(0)
{
}

AES3Source::~AES3Source() = default;

void AES3Source::info(unsigned char & channels, unsigned char & bits)
{
    Templates::auto_ptr<DataIO::Slice> slice = reader_.readAligned(Header::size());
    auto const header = recordIn<Header>(*slice);
    reader_.unget(slice);

    channels = header.numberOfChannels();
    bits = header.bitsPerSample();
    pairCount(channels / 2);
    blockSize((bits + 4) * channels / 8);
}

bool AES3Source::fetch(unsigned short)
{
    if (payloadLeft_ == 0 && !nextPacket())
        return false;

    while (payloadLeft_ != 0)
    {
        UInt64 const blocks = reader_.endOfStream() ? 0 : buffer(reader_.nextSliceAligned(payloadLeft_, blockSize()));
        if (blocks == 0)
            return false;
        payloadLeft_ -= blocks * blockSize();
    }
    return true;
}

bool AES3Source::nextPacket()
{
    Templates::auto_ptr<DataIO::Slice> const header = reader_.read(Header::size());
    if (header->size() < Header::size())
        return false;

    unsigned short const payloadLength = recordIn<Header>(*header).audioPacketSize();
    VANTRY_CHECK_TEXT(payloadLength % blockSize() == 0, "payloadLength % bytesPerSample_ == 0", InvalidFormat,
                      "A AES packet contains a number of bytes that is not a multiple of the sample size.");
    payloadLeft_ = payloadLength;
    return true;
}

DataIO::SliceReader & AES3Source::source()
{
    return reader_;
}

DataIO::SliceReader const & AES3Source::source() const
{
    return reader_;
}

void AES3Source::encode(unsigned char * out, unsigned char const * blocks, UInt64 count)
{
    switch (blockSize() / pairCount())
    {
    case SamplePair<16>::SIZE:
        return encodeBlocks<16>(out, blocks, count);
    case SamplePair<24>::SIZE:
        return encodeBlocks<24>(out, blocks, count);
    case SamplePair<20>::SIZE:
        VANTRY_FAIL(NotImplemented, AES3::S302M::NO_TWENTY_BITS);
    default:
        VANTRY_FAIL(InvalidFormat, "AES3 has invalid bytes per Sample");
    }
}

template <unsigned int BITS>
void AES3Source::encodeBlocks(unsigned char * out, unsigned char const * blocks, UInt64 count) const noexcept
{
    for (UInt64 i = 0; i < count; ++i, out += S331M::SAMPLE_SIZE)
    {
        unsigned char * words = out;
        for (unsigned int n = 0; n < pairCount(); ++n, blocks += SamplePair<BITS>::SIZE)
        {
            UInt64 const pair = SamplePair<BITS>::numberIn(blocks);
            UInt64 const framing = (pair >> (BITS + 3) & 1) * S331M::bothWords(S331M::FRAME_BIT);
            words = S331M::putWords(words, wordsOf<BITS>(pair) | framing | channelsOfPair(n));
        }
    }
}

}}}}

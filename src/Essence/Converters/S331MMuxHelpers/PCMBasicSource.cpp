#include "Essence/Converters/S331MMuxHelpers/PCMBasicSource.h"

#include "Essence/AES3/S331M.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

namespace S331M = AES3::S331M;

namespace {

unsigned short const MAXIMUM_BITS = 24;

// The most that a sample has where the auxiliary bits are no part of it.
unsigned short const BITS_WITHOUT_AUXILIARY = 20;

unsigned int sampleSize(PCMLayout const & layout)
{
    return layout.channels != 0 ? layout.blockAlign / layout.channels : layout.blockAlign;
}

UInt32 lowBits(unsigned int count)
{
    return count < MAXIMUM_BITS ? (UInt32(1) << count) - 1 : S331M::SAMPLE_MASK;
}

// Two samples of `SIZE` bytes, the first in the low half.
template <unsigned int SIZE>
UInt64 samplesAt(unsigned char const * bytes) noexcept
{
    if constexpr (SIZE == 1)
        return S331M::bothWords(bytes[0], bytes[1]);

    UInt32 const MASK = (UInt32(1) << 8 * SIZE) - 1;
    UInt64 number = S331M::wordAt(bytes);
    if constexpr (SIZE == 3)
        number |= UInt64(bytes[4] | bytes[5] << 8) << 32;
    return S331M::bothWords(static_cast<UInt32>(number) & MASK, static_cast<UInt32>(number >> 8 * SIZE));
}

}

PCMBasicSource::PCMBasicSource(unsigned char firstChannel, PCMLayout const & layout) :
    EssenceSource(firstChannel),
    layout_(layout),
    validMask_(lowBits(layout.validBitsPerSample)),
    dumper_(status_),
    statusBits_{},
    statusPosition_(0)
{
    VANTRY_CHECK(layout.channels <= S331M::CHANNELS, InvalidValue, "An element has eight channels at most");
    VANTRY_CHECK(layout.bitsPerSample <= MAXIMUM_BITS && sampleSize(layout) >= 1 &&
                     sampleSize(layout) <= S331M::DECODED_SIZE,
                 InvalidValue, "A sample of an eight-channel element has up to 24 bits");
    pairCount(layout.channels / 2);
    blockSize(layout.blockAlign);
}

PCMBasicSource::~PCMBasicSource() = default;

void PCMBasicSource::info(unsigned char & channels, unsigned char & bits)
{
    describe(status_);
    loadStatusBits();
    channels = static_cast<unsigned char>(layout_.channels);
    bits = static_cast<unsigned char>(layout_.validBitsPerSample);
}

void PCMBasicSource::describe(AES3::ChannelStatus & status) const
{
    status.useOfAuxiliarySampleBits(layout_.bitsPerSample <= BITS_WITHOUT_AUXILIARY ? AES3::AUXILIARY_BITS_NOT_DEFINED
                                                                                    : AES3::AUXILIARY_BITS_AUDIO);
    status.lockIndication(false);
    status.professionalUse(true);
    status.samplingFrequency(static_cast<int>(layout_.samplingFrequency));
    status.sourceWordLength(static_cast<unsigned char>(layout_.bitsPerSample));
}

void PCMBasicSource::loadStatusBits()
{
    for (UInt64 & bits : statusBits_)
    {
        bool framing = false;
        bool value = false;
        dumper_.pop(framing, value);
        bits = S331M::bothWords(UInt32(framing) * S331M::FRAME_BIT | UInt32(value) * S331M::CHANNEL_STATUS_BIT);
    }
}

bool PCMBasicSource::fetch(unsigned short count)
{
    return !source().endOfStream() && buffer(source().nextSliceAligned(count * blockSize(), blockSize())) != 0;
}

void PCMBasicSource::encode(unsigned char * out, unsigned char const * blocks, UInt64 count)
{
    switch (sampleSize(layout_))
    {
    case 1:
        return encodeBlocks<1>(out, blocks, count);
    case 2:
        return encodeBlocks<2>(out, blocks, count);
    default:
        return encodeBlocks<3>(out, blocks, count);
    }
}

template <unsigned int SIZE>
void PCMBasicSource::encodeBlocks(unsigned char * out, unsigned char const * blocks, UInt64 count) noexcept
{
    unsigned int const SHIFT = S331M::SAMPLE_SHIFT + (S331M::DECODED_SIZE - SIZE) * 8;
    UInt64 const CHANNEL_STATUS = S331M::bothWords(S331M::CHANNEL_STATUS_BIT);
    UInt64 const FRAME = S331M::bothWords(S331M::FRAME_BIT);

    // Bytes that are written might be any member, so members are read before.
    UInt64 channels[S331M::CHANNELS / 2];
    unsigned int const pairs = pairCount();
    for (unsigned int n = 0; n < pairs; ++n)
        channels[n] = channelsOfPair(n);
    UInt64 const valid = S331M::bothWords(validMask_);
    UInt64 const step = blockSize();
    unsigned int position = statusPosition_;
    for (UInt64 i = 0; i < count; ++i, blocks += step, out += S331M::SAMPLE_SIZE)
    {
        UInt64 const status = statusBits_[position];
        position = position + 1 < STATUS_BITS ? position + 1 : 0;
        unsigned char const * sample = blocks;
        unsigned char * words = out;
        for (unsigned int n = 0; n < pairs; ++n, sample += 2 * SIZE)
        {
            UInt64 const sound = (samplesAt<SIZE>(sample) & valid) << SHIFT;
            words = S331M::putWords(words, S331M::withParity(sound | (status & CHANNEL_STATUS)) | (status & FRAME) |
                                               channels[n]);
        }
    }
    statusPosition_ = position;
}

}}}}

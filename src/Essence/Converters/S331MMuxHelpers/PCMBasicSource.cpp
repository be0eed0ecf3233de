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

template <unsigned int SIZE>
UInt32 numberAt(unsigned char const * bytes) noexcept
{
    UInt32 number = 0;
    for (unsigned int i = 0; i < SIZE; ++i)
        number |= UInt32(bytes[i]) << 8 * i;
    return number;
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
    for (UInt32 & bits : statusBits_)
    {
        bool framing = false;
        bool value = false;
        dumper_.pop(framing, value);
        bits = UInt32(framing) * S331M::FRAME_BIT | UInt32(value) * S331M::CHANNEL_STATUS_BIT;
    }
}

UInt32 PCMBasicSource::nextStatusBits() noexcept
{
    UInt32 const bits = statusBits_[statusPosition_];
    statusPosition_ = statusPosition_ + 1 < AES3::ChannelStatusDataFormat::BITS ? statusPosition_ + 1 : 0;
    return bits;
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

    unsigned int const words = 2 * pairCount();
    for (UInt64 i = 0; i < count; ++i, blocks += blockSize(), out += S331M::SAMPLE_SIZE)
    {
        UInt32 const status = nextStatusBits();
        unsigned char const * sample = blocks;
        unsigned char * word = out;
        for (unsigned int n = 0; n < words; ++n, sample += SIZE)
        {
            UInt32 const sound = (numberAt<SIZE>(sample) & validMask_) << SHIFT;
            UInt32 const channel = (firstChannel() + n) & S331M::CHANNEL_MASK;
            word = S331M::putWord(word, S331M::withParity(sound | (status & S331M::CHANNEL_STATUS_BIT)) |
                                            (status & S331M::FRAME_BIT) | channel);
        }
    }
}

}}}}

#include "VideoHeaders.h"

#include "Exceptions/InvalidValue.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Analyzers {

namespace {

using Rate = Templates::Rational<int>;

// Takes fields of bits from a header, the most significant bit first.
class Bits
{
public:
    explicit Bits(DataIO::Slice const & slice) noexcept : bytes_(slice.begin()), position_(0) {}

    unsigned int take(unsigned int count) noexcept
    {
        unsigned int value = 0;
        for (; count > 0; --count, ++position_)
            value = value << 1 | (bytes_[position_ / 8] >> (7 - position_ % 8) & 1u);
        return value;
    }

    bool takeFlag() noexcept { return take(1) != 0; }
    void skip(unsigned int count) noexcept { position_ += count; }

private:
    unsigned char const * bytes_;
    unsigned int position_;
};

}

void SequenceHeader::read(DataIO::Slice const & header)
{
    Bits bits(header);
    width = bits.take(12);
    height = bits.take(12);
    aspectRatioCode = bits.take(4);
    frameRateCode = bits.take(4);
    bitRate = bits.take(18);
}

void SequenceHeader::readExtension(DataIO::Slice const & extension)
{
    Bits bits(extension);
    bits.skip(4);
    hasExtension = true;
    profileAndLevel = bits.take(8);
    isProgressive = bits.takeFlag();
    chromaFormat = bits.take(2);
    width |= bits.take(2) << 12;
    height |= bits.take(2) << 12;
    bitRate |= bits.take(12) << 18;
    bits.skip(1 + 8);
    isLowDelay = bits.takeFlag();
    frameRateNumerator = bits.take(2);
    frameRateDenominator = bits.take(5);
}

std::optional<Rate> SequenceHeader::frameRate() const
{
    static int const RATES[][2] = {{24000, 1001}, {24, 1}, {25, 1},       {30000, 1001},
                                   {30, 1},       {50, 1}, {60000, 1001}, {60, 1}};
    if (frameRateCode == 0 || frameRateCode > std::size(RATES))
        return std::nullopt;
    auto const & [numerator, denominator] = RATES[frameRateCode - 1];
    return Rate(numerator * static_cast<int>(frameRateNumerator + 1),
                denominator * static_cast<int>(frameRateDenominator + 1));
}

bool SequenceHeader::agreesWith(SequenceHeader const & other) const noexcept
{
    return width == other.width && height == other.height && frameRate() == other.frameRate() &&
           chromaFormat == other.chromaFormat && isProgressive == other.isProgressive;
}

void GroupHeader::read(DataIO::Slice const & header)
{
    Bits bits(header);
    dropFrame = bits.takeFlag();
    hours = static_cast<unsigned char>(bits.take(5));
    minutes = static_cast<unsigned char>(bits.take(6));
    bits.skip(1);
    seconds = static_cast<unsigned char>(bits.take(6));
    pictures = static_cast<unsigned char>(bits.take(6));
    isClosed = bits.takeFlag();
}

Utils::TimeCode GroupHeader::timeCode(Rate const & rate) const
try
{
    // From 50 frames per second on a time code counts pairs, the header not.
    auto const frameRate = static_cast<unsigned char>((rate.numerator() + rate.denominator() - 1) / rate.denominator());
    bool const inPairs = frameRate == 50 || frameRate == 60;
    auto const frames = static_cast<unsigned char>(inPairs ? pictures / 2 : pictures);
    return Utils::TimeCode(frameRate, hours, minutes, seconds, frames, dropFrame, inPairs && pictures % 2 != 0);
}
catch (Exceptions::InvalidValue const &)
{
    return Utils::TimeCode();
}

bool PictureHeader::read(DataIO::Slice const & header)
{
    Bits bits(header);
    temporalReference = bits.take(10);
    type = static_cast<PictureType>(bits.take(3));
    return type >= PictureType::INTRA && type <= PictureType::BIDIRECTIONAL;
}

bool PictureHeader::readExtension(DataIO::Slice const & extension)
{
    Bits bits(extension);
    bits.skip(4 + 4 * 4);
    hasExtension = true;
    intraDCPrecision = bits.take(2);
    structure = static_cast<PictureStructure>(bits.take(2));
    isTopFieldFirst = bits.takeFlag();
    bits.skip(7);
    isProgressive = bits.takeFlag();
    return structure >= PictureStructure::TOP_FIELD;
}

}}

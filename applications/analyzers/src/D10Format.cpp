#include "D10Format.h"

#include "Exceptions/InvalidFormat.h"

#include <string>

namespace Vantry { namespace Analyzers {

namespace {

using Rate = Templates::Rational<int>;

unsigned int const WIDTH = 720;
unsigned int const HEIGHT_625 = 608;
unsigned int const HEIGHT_525 = 512;
unsigned int const SHOWN_625 = 576;
unsigned int const SHOWN_525 = 486;

unsigned int const CHROMA_422 = 2;
unsigned int const PROFILE_422_AT_MAIN_LEVEL = 0x85;

// Bit rates in headers count 400 bits per second.
UInt64 const MEGABIT = 1000000 / 400;

[[noreturn]] void refuse(std::string const & what)
{
    throw Exceptions::InvalidFormat(("MPEG-2 video " + what).c_str(), __FILE__, __LINE__);
}

void check(bool isSo, std::string const & otherwise)
{
    if (!isSo)
        refuse(otherwise);
}

std::string textOf(Rate const & rate)
{
    std::string const numerator = std::to_string(rate.numerator());
    return rate.denominator() == 1 ? numerator : numerator + "/" + std::to_string(rate.denominator());
}

unsigned int megabitsOf(SequenceHeader const & sequence)
{
    UInt64 const megabits = sequence.bitRate / MEGABIT;
    bool const isOfD10 = megabits == 30 || megabits == 40 || megabits == 50;
    check(isOfD10 && sequence.bitRate % MEGABIT == 0,
          "of " + std::to_string(sequence.bitRate * 400) + " bits a second isn't D-10, which has 30, 40 or 50 million");
    return static_cast<unsigned int>(megabits);
}

}

// Where the rates give a picture no whole number of bytes, encoders round up.
D10Format::D10Format(unsigned int megabits, bool is625, Rate const & rate) : megabits_(megabits), is625_(is625)
{
    UInt64 const bytes = UInt64(megabits) * 1000000 / 8 * static_cast<UInt64>(rate.denominator());
    auto const frames = static_cast<UInt64>(rate.numerator());
    pictureSize_ = static_cast<unsigned int>((bytes + frames - 1) / frames);
}

D10Format D10Format::of(SequenceHeader const & sequence)
{
    Rate const rate = sequence.frameRate().value_or(Rate(0));
    bool const is625 = rate == Rate(25);
    check(is625 || rate == Rate(30000, 1001),
          "of " + textOf(rate) + " frames a second isn't D-10, which has 25 or 30000/1001");

    unsigned int const height = is625 ? HEIGHT_625 : HEIGHT_525;
    check(sequence.width == WIDTH && sequence.height == height,
          "of " + std::to_string(sequence.width) + " by " + std::to_string(sequence.height) + " samples at " +
              textOf(rate) + " frames a second isn't D-10, which has " + std::to_string(WIDTH) + " by " +
              std::to_string(height));
    check(!sequence.isProgressive, "of a progressive sequence isn't D-10, which is interlaced");
    check(sequence.chromaFormat == CHROMA_422 && sequence.profileAndLevel == PROFILE_422_AT_MAIN_LEVEL,
          "of another profile isn't D-10, which is of the 4:2:2 profile at main level");
    return {megabitsOf(sequence), is625, rate};
}

// Byte 14 of the container's label and byte 15 of the coding's count 50 Mb/s of
// 625 and 525 lines, then 40, then 30. The last byte of the container's says
// that the data item has no elements beyond those of SMPTE 386M.
Types::UniversalLabel D10Format::containerLabel() const
{
    auto const code = static_cast<unsigned char>((50 - megabits_) / 10 * 2 + (is625_ ? 1 : 2));
    unsigned char const bytes[16] = {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x01,
                                     0x0D, 0x01, 0x03, 0x01, 0x02, 0x01, code, 0x01};
    return Types::UniversalLabel(bytes);
}

Types::UniversalLabel D10Format::codingLabel() const
{
    auto const code = static_cast<unsigned char>((50 - megabits_) / 10 * 2 + (is625_ ? 1 : 2));
    unsigned char const bytes[16] = {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x01,
                                     0x04, 0x01, 0x02, 0x02, 0x01, 0x02, 0x01, code};
    return Types::UniversalLabel(bytes);
}

unsigned int D10Format::dataLines() const noexcept
{
    return (is625_ ? HEIGHT_625 : HEIGHT_525) - shownLines();
}

unsigned int D10Format::shownLines() const noexcept
{
    return is625_ ? SHOWN_625 : SHOWN_525;
}

}}

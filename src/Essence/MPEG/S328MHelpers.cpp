#include "Essence/MPEG/S328MHelpers.h"

#include "ByteCoders/BCD.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "Platform/BigEndian.h"
#include "Utils/RoundedUp.h"
#include "Utils/TimeCode.h"

#include <limits>

namespace Vantry { namespace Essence { namespace MPEG { namespace S328MHelpers {

namespace {

enum Field
{
    FRAMES,
    SECONDS,
    MINUTES,
    HOURS,
    FIELD_COUNT
};

unsigned char const DROP_FRAME = 0x40; // of the frames
unsigned char const FIELD_PHASE = 0x80;

// What is left of the fields without flags.
unsigned char const DIGITS[FIELD_COUNT] = {0x3F, 0x7F, 0x7F, 0x3F};

unsigned int const VALUE_SIZE = 8;

// The value comes in four groups of 16 bits, each with a marker bit behind it.
unsigned int const GROUP_COUNT = 4;

Field phaseField(bool mode)
{
    return mode ? SECONDS : HOURS;
}

void spread(unsigned char const * value, S328M_TIME_CODE & code)
{
    for (unsigned int i = 0; i < GROUP_COUNT; ++i)
    {
        unsigned int const group = Platform::readBigEndian<unsigned short>(value + 2 * i);
        unsigned int const bits = (group << 1 | 1) << (7 - i);
        unsigned char * const place = code.bytes + 2 * i;
        place[0] |= static_cast<unsigned char>(bits >> 16);
        place[1] |= static_cast<unsigned char>(bits >> 8);
        place[2] |= static_cast<unsigned char>(bits);
    }
}

void gather(S328M_TIME_CODE const & code, unsigned char * value)
{
    for (unsigned int i = 0; i < GROUP_COUNT; ++i)
    {
        unsigned char const * const place = code.bytes + 2 * i;
        unsigned int const bits = place[0] << 16u | place[1] << 8u | place[2];
        Platform::writeBigEndian(static_cast<unsigned short>(bits >> (8 - i)), value + 2 * i);
    }
}

unsigned char frameRateOf(Templates::Rational<int> const & rate)
{
    int const frameRate = Utils::roundedUp(rate);
    VANTRY_CHECK_TEXT(frameRate > 0 && frameRate <= std::numeric_limits<unsigned char>::max(), "frameRate_ > 0",
                      InvalidValue, "Invalid frameRate.");
    return static_cast<unsigned char>(frameRate);
}

}

S328M_TIME_CODE encodeS328MTimecode(Utils::TimeCode const & timeCode, bool mode)
{
    unsigned char value[VALUE_SIZE] = {};
    int const digits =
        ((timeCode.hours() * 100 + timeCode.minutes()) * 100 + timeCode.seconds()) * 100 + timeCode.frames();
    ByteCoders::encodeBCD(value, digits);

    // Frame numbers from 40 on don't fit; none of their bits are flags.
    for (unsigned int i = 0; i < FIELD_COUNT; ++i)
        value[i] &= DIGITS[i];
    if (mode && timeCode.dropFrame())
        value[FRAMES] |= DROP_FRAME;
    if (timeCode.fieldPhase())
        value[phaseField(mode)] |= FIELD_PHASE;

    S328M_TIME_CODE code;
    spread(value, code);
    return code;
}

Utils::TimeCode decodeS328MTimecode(S328M_TIME_CODE const & code, Templates::Rational<int> const & rate, bool mode)
{
    unsigned char value[VALUE_SIZE];
    gather(code, value);

    unsigned char fields[FIELD_COUNT];
    for (unsigned int i = 0; i < FIELD_COUNT; ++i)
    {
        unsigned char const digits = value[i] & DIGITS[i];
        fields[i] = static_cast<unsigned char>((digits >> 4) * 10 + (digits & 15));
    }
    bool const isDropFrame = mode && (value[FRAMES] & DROP_FRAME) != 0;
    bool const isSecondField = (value[phaseField(mode)] & FIELD_PHASE) != 0;
    return {frameRateOf(rate), fields[HOURS], fields[MINUTES], fields[SECONDS],
            fields[FRAMES],    isDropFrame,   isSecondField};
}

}}}}

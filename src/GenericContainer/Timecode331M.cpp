#include "GenericContainer/Timecode331M.h"

#include "ByteCoders/BCD.h"
#include "Utils/TimeCodeExtended.h"

#include <cstddef>

namespace Vantry { namespace GenericContainer {

namespace {

unsigned char const FLAG = 0x80;
unsigned char const COLOR_FRAME = FLAG; // of byte 0
unsigned char const DROP_FRAME = 0x40;  // of byte 0
unsigned char const FLAG_1 = 0x40;      // of byte 3

// What is left of bytes 0 to 3 without flags. Frames have room up to 39.
unsigned char const DIGITS[] = {0x3F, 0x7F, 0x7F, 0x3F};

std::size_t const FIRST_GROUPS = 4;

// Bit 7 of bytes 1 to 3.
void writeFlags(unsigned char * bytes, bool first, bool second, bool third)
{
    bytes[1] |= first ? FLAG : 0;
    bytes[2] |= second ? FLAG : 0;
    bytes[3] |= third ? FLAG : 0;
}

void writeUserBits(unsigned char * bytes, Utils::TimeCodeExtended const & timeCode)
{
    Utils::TimeCodeExtended::BinaryGroups const groups = timeCode.binaryGroups();
    bytes[0] |= timeCode.colorFrame() ? COLOR_FRAME : 0;
    bytes[3] |= groups.flag1 ? FLAG_1 : 0;
    if (timeCode.frameRate() == 25 || timeCode.frameRate() == 50)
        writeFlags(bytes, groups.flag0, groups.flag2, timeCode.fieldPhase());
    else
        writeFlags(bytes, timeCode.fieldPhase(), groups.flag0, groups.flag2);

    for (std::size_t i = 0; i < 4; ++i)
        bytes[FIRST_GROUPS + i] =
            static_cast<unsigned char>((groups.groups[2 * i] & 15) << 4 | (groups.groups[2 * i + 1] & 15));
}

}

void writeTimecode12M(Timecode12M & destination, Utils::TimeCode const & timeCode)
{
    destination = Timecode12M();
    int const digits =
        ((timeCode.hours() * 100 + timeCode.minutes()) * 100 + timeCode.seconds()) * 100 + timeCode.frames() % 100;
    ByteCoders::encodeBCD(destination.bytes, digits);
    destination.bytes[0] &= DIGITS[0];
    destination.bytes[0] |= timeCode.dropFrame() ? DROP_FRAME : 0;
    if (auto const * const extended = dynamic_cast<Utils::TimeCodeExtended const *>(&timeCode))
        writeUserBits(destination.bytes, *extended);
}

Utils::TimeCode readTimecode12M(Timecode12M const & source, unsigned char frameRate)
{
    unsigned char fields[4];
    for (std::size_t i = 0; i < 4; ++i)
    {
        unsigned char const byte = source.bytes[i] & DIGITS[i];
        fields[i] = static_cast<unsigned char>((byte >> 4) * 10 + (byte & 15));
    }
    bool const isDropFrame = (source.bytes[0] & DROP_FRAME) != 0;
    return {frameRate, fields[3], fields[2], fields[1], fields[0], isDropFrame, false};
}

void writeTimecode331M(Timecode331M & destination, Utils::TimeCode const & timeCode)
{
    destination = Timecode331M();
    destination.kind = Timecode331M::TIME_CODE;
    writeTimecode12M(destination.timecode, timeCode);
}

}}

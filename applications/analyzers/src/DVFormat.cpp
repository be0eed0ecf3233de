#include "DVFormat.h"

#include "Exceptions/InvalidValue.h"

namespace Vantry { namespace Analyzers {

namespace {

unsigned int const BLOCK_SIZE = 80;
unsigned int const IDENTIFIER_SIZE = 3;
unsigned int const PACK_SIZE = 5;

// The blocks of a sequence before its picture and sound.
unsigned int const HEADER_BLOCK = 0;
unsigned int const FIRST_SUBCODE_BLOCK = 1;
unsigned int const FIRST_AUXILIARY_BLOCK = 3;
unsigned int const BLOCKS = 6;

// Section types, in the upper bits of a block's first byte, and the numbers
// that the blocks have in their sections.
struct BlockPlace
{
    unsigned char section;
    unsigned char number;
};
BlockPlace const PLACES[BLOCKS] = {{0, 0}, {1, 0}, {1, 1}, {2, 0}, {2, 1}, {2, 2}};

// A part of a subcode block: an identifier, and a pack.
unsigned int const SYNC_BLOCK_SIZE = 8;
unsigned int const SYNC_BLOCKS = 6;

unsigned int const AUXILIARY_PACKS = 15;

unsigned char const TIME_CODE_PACK = 0x13;
unsigned char const SOURCE_PACK = 0x60;
unsigned char const SOURCE_CONTROL_PACK = 0x61;

// Values of SMPTE 377M, annex E.
unsigned char const ITU_601 = 1;
unsigned char const SMPTE_274M = 4;
unsigned char const SMPTE_296M = 5;
unsigned char const CO_SITED = 0;
unsigned char const REC_601_SITING = 4;
unsigned char const LINE_ALTERNATING = 5;

// clang-format off
DVFormat const FORMATS[] = {
    {false, false, 0x00, 0x01, {1, 1}, 120000, 30000, 1001,  720,  480, false, {23, 285}, ITU_601,    4, 1, CO_SITED},
    {false, true,  0x00, 0x02, {1, 2}, 144000, 25,    1,     720,  576, false, {23, 335}, ITU_601,    2, 2, LINE_ALTERNATING},
    {true,  false, 0x00, 0x40, {2, 1}, 120000, 30000, 1001,  720,  480, false, {23, 285}, ITU_601,    4, 1, CO_SITED},
    {true,  true,  0x00, 0x41, {2, 2}, 144000, 25,    1,     720,  576, false, {23, 335}, ITU_601,    4, 1, CO_SITED},
    {true,  false, 0x04, 0x50, {2, 3}, 240000, 30000, 1001,  720,  480, false, {23, 285}, ITU_601,    2, 1, REC_601_SITING},
    {true,  true,  0x04, 0x51, {2, 4}, 288000, 25,    1,     720,  576, false, {23, 335}, ITU_601,    2, 1, REC_601_SITING},
    {true,  false, 0x14, 0x60, {2, 5}, 480000, 30000, 1001, 1280, 1080, false, {21, 584}, SMPTE_274M, 2, 1, REC_601_SITING},
    {true,  true,  0x14, 0x61, {2, 6}, 576000, 25,    1,    1440, 1080, false, {21, 584}, SMPTE_274M, 2, 1, REC_601_SITING},
    {true,  false, 0x18, 0x62, {2, 7}, 240000, 60000, 1001,  960,  720, true,  {26, 0},   SMPTE_296M, 2, 1, REC_601_SITING},
    {true,  true,  0x18, 0x63, {2, 8}, 288000, 50,    1,     960,  720, true,  {26, 0},   SMPTE_296M, 2, 1, REC_601_SITING},
};
// clang-format on

// From such pictures on they are wide whatever else is said.
unsigned char const FIRST_HIGH_DEFINITION = 0x10;

unsigned int decimal(unsigned char byte, unsigned char tensMask)
{
    return (byte >> 4 & tensMask) * 10u + (byte & 0x0F);
}

}

bool DVHeaders::areWhole() const
{
    if (blocks_.size() < SIZE)
        return false;
    for (unsigned int i = 0; i < BLOCKS; ++i)
        if (block(i)[0] >> 5 != PLACES[i].section || block(i)[1] >> 4 != 0 || block(i)[2] != PLACES[i].number)
            return false;
    return true;
}

DVFormat const * DVHeaders::format() const
{
    // Some writers leave the auxiliary data out, in what has 25 Mb/s.
    unsigned char const * const source = auxiliaryPack(SOURCE_PACK);
    unsigned char const signalType = source != nullptr ? source[3] & 0x1F : 0;
    for (DVFormat const & format : FORMATS)
        if (format.is50Hz == is50Hz() && format.signalType == signalType &&
            (format.isProfessional == (application() != 0) || signalType != 0))
            return &format;
    return nullptr;
}

bool DVHeaders::isWide() const
{
    unsigned char const * const control = auxiliaryPack(SOURCE_CONTROL_PACK);
    unsigned int const shape = control != nullptr ? control[2] & 7u : 0;
    return format()->signalType >= FIRST_HIGH_DEFINITION || shape == 2 || (shape == 7 && application() == 0);
}

Utils::TimeCode DVHeaders::timeCode() const
{
    for (unsigned int i = 0; i < 2 * SYNC_BLOCKS; ++i)
    {
        unsigned char const * const syncBlock =
            block(FIRST_SUBCODE_BLOCK + i / SYNC_BLOCKS) + IDENTIFIER_SIZE + i % SYNC_BLOCKS * SYNC_BLOCK_SIZE;
        if (std::optional<Utils::TimeCode> const found = timeCodeIn(syncBlock + IDENTIFIER_SIZE))
            return *found;
    }
    return Utils::TimeCode();
}

// None in a pack of another kind, or one with numbers that no time of day has.
std::optional<Utils::TimeCode> DVHeaders::timeCodeIn(unsigned char const * pack) const
try
{
    if (pack[0] != TIME_CODE_PACK)
        return std::nullopt;
    DVFormat const & known = *format();
    int const frames = (known.frames + known.seconds - 1) / known.seconds;
    auto const field = [](unsigned int number)
    {
        return static_cast<unsigned char>(number);
    };
    // Drop frame is a matter of 30 frames a second alone.
    bool const dropFrame = !known.is50Hz && (pack[1] & 0x40) != 0;
    return Utils::TimeCode(static_cast<unsigned char>(frames), field(decimal(pack[4], 3)), field(decimal(pack[3], 7)),
                           field(decimal(pack[2], 7)), field(decimal(pack[1], 3)), dropFrame, false);
}
catch (Exceptions::InvalidValue const &)
{
    return std::nullopt;
}

// Null where there is none.
unsigned char const * DVHeaders::auxiliaryPack(unsigned char id) const
{
    for (unsigned int i = FIRST_AUXILIARY_BLOCK; i < BLOCKS; ++i)
        for (unsigned int n = 0; n < AUXILIARY_PACKS; ++n)
        {
            unsigned char const * const pack = block(i) + IDENTIFIER_SIZE + n * PACK_SIZE;
            if (pack[0] == id)
                return pack;
        }
    return nullptr;
}

unsigned char const * DVHeaders::block(unsigned int number) const
{
    return blocks_.begin() + number * BLOCK_SIZE;
}

bool DVHeaders::is50Hz() const
{
    return (block(HEADER_BLOCK)[3] & 0x80) != 0;
}

unsigned char DVHeaders::application() const
{
    return block(HEADER_BLOCK)[4] & 7;
}

}}

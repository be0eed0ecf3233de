#include "Essence/Audio/SampleAlignmentVector.h"

#include "Exceptions/Check.h"
#include "Exceptions/NotImplemented.h"
#include "Platform/WideLiteral.h"

#include <cstddef>

namespace Vantry { namespace Essence { namespace Audio {

namespace {

using Rate = Templates::Rational<int>;

// One cycle, a digit for each edit unit.
struct Cycle
{
    unsigned int samplingRate;
    char const * digits;
};

Cycle const CYCLES_OF_NTSC[] = {
    {48000, "01010"},
    {44100, "0101010101010101101010101010101011010101010101010110"
            "101010101010110101010101010101101010101010101011"},
    {22050, "0100010001000100100010001000100010010001000100010010001000100010001001000100010001001000100010001000"
            "1001000100010001001000100010001001000100010001000100100010001000100100010001000100010010001000100010"},
    {8000, "000000010000000"},
};

Cycle const CYCLES_OF_NTSC_FIELDS[] = {
    {48000, "0010000100"},
};

template <std::size_t Count>
char const * digitsFor(unsigned int samplingRate, Cycle const (&cycles)[Count], unsigned short const * refusal)
{
    for (Cycle const & cycle : cycles)
        if (cycle.samplingRate == samplingRate)
            return cycle.digits;
    VANTRY_FAIL(NotImplemented, refusal);
}

char const * digitsFor(unsigned int samplingRate, Rate const & editRate)
{
    static constexpr Platform::WideLiteral FRAMES(
        u"30000/1001 Edit Rate supported only for 48KHz, 44.1KHz, 22.05KHz and 8KHz.");
    static constexpr Platform::WideLiteral FIELDS(u"60000/1001 Edit Rate only supported for 48KHz.");

    if (editRate == Rate(30000, 1001))
        return digitsFor(samplingRate, CYCLES_OF_NTSC, FRAMES);
    if (editRate == Rate(60000, 1001))
        return digitsFor(samplingRate, CYCLES_OF_NTSC_FIELDS, FIELDS);
    return "0";
}

}

void SampleAlignmentVector::fillSampleAlignmentVector(Templates::vector<unsigned char> & alignment,
                                                      unsigned int samplingRate, Rate const & editRate)
{
    for (char const * digit = digitsFor(samplingRate, editRate); *digit != 0; ++digit)
        alignment.push_back(static_cast<unsigned char>(*digit - '0'));
}

}}}

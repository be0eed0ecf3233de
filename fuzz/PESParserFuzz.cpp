// Parses any bytes as packets of an elementary stream, given in slices of two
// sizes, and stops when the payloads differ, hold more bytes than there are,
// or don't come to an end. The first bytes of the stream are read as a time
// code, too, which is to come back as it was.
//
// Input: one byte for the maximum to skip, whose top bit says whether what was
// skipped is kept, and the stream.

#include "Essence/MPEG/PESParser.h"
#include "Essence/MPEG/S328MHelpers.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidValue.h"
#include "Utils/TimeCode.h"
#include "support/QueuedBytes.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using namespace Vantry;
using namespace Essence::MPEG;

void check(bool holds)
{
    if (!holds)
        std::abort();
}

struct Parsed
{
    std::vector<unsigned char> payload;
    bool failed = false;
};

Parsed parse(std::uint8_t settings, std::uint8_t const * bytes, std::size_t size, UInt64 pieceSize)
{
    PESParser parser(Tests::queuedBytes(bytes, size, pieceSize), settings & 0x7F, (settings & 0x80) != 0);
    Parsed parsed;
    std::size_t empties = 0;
    try
    {
        while (!parser.endOfStream())
        {
            auto const slice = parser.read(1);
            if (slice.get() == nullptr)
                break;
            check(slice->size() != 0 || ++empties <= size);
            parsed.payload.insert(parsed.payload.end(), slice->begin(), slice->end());
            check(parsed.payload.size() == parser.absoluteOffset() && parser.pts() >> 33 == 0);
        }
    }
    catch (Exceptions::InvalidFormat const &)
    {
        parsed.failed = true;
    }
    check(parsed.payload.size() <= size);
    return parsed;
}

void readTimeCode(std::uint8_t const * bytes, std::size_t size, bool mode)
{
    S328M_TIME_CODE code;
    std::copy_n(bytes, std::min(size, sizeof code.bytes), code.bytes);
    for (Templates::Rational<int> const & rate : {Templates::Rational<int>(25), {30000, 1001}, {60, 1}})
        try
        {
            Utils::TimeCode const read = S328MHelpers::decodeS328MTimecode(code, rate, mode);
            check(S328MHelpers::decodeS328MTimecode(S328MHelpers::encodeS328MTimecode(read, mode), rate, mode) == read);
        }
        catch (Exceptions::InvalidValue const &)
        {
        }
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size == 0)
        return 0;

    Parsed const parsed = parse(data[0], data + 1, size - 1, 100);
    Parsed const again = parse(data[0], data + 1, size - 1, 7);
    check(parsed.payload == again.payload && parsed.failed == again.failed);
    readTimeCode(data + 1, size - 1, (data[0] & 1) != 0);
    return 0;
}

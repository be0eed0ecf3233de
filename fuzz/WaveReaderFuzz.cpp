// Reads any bytes as a wave, and stops when its data isn't a run of the input
// or is longer than that.
//
// Input: one byte for how much to read at once, and the stream.

#include "Essence/Converters/S331MMuxHelpers/PCMWaveReader.h"
#include "Exceptions/BaseException.h"
#include "support/QueuedBytes.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace Vantry;
using Essence::Converters::S331MMuxHelpers::PCMWaveReader;

void readAll(PCMWaveReader & reader, UInt64 size, UInt64 atOnce)
{
    reader.preload();
    UInt64 total = 0;
    while (UInt64 const some = atOnce % 2 == 0 ? reader.read(atOnce)->size() : reader.skip(atOnce))
        total += some;
    if (total != reader.absoluteOffset() || total > size)
        std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 2)
        return 0;

    UInt64 const atOnce = UInt64(data[0]) + 1;
    UInt64 const streamSize = size - 1;
    try
    {
        PCMWaveReader reader(Tests::queuedBytes(data + 1, streamSize));
        readAll(reader, streamSize, atOnce);
    }
    catch (Exceptions::BaseException const &)
    {
        // Refused by name, which is an answer.
    }
    return 0;
}

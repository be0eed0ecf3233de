// Reads any bytes as SMPTE 302M, or turns them from a wave into it first, and
// stops when what comes out isn't of the size that was told, or goes on
// without end.
//
// Input: one byte that says whether it is a wave, and how to read; the stream.

#include "DataIO/Chain.h"
#include "Essence/AES3/AES3Info.h"
#include "Essence/AES3/S302M/Source.h"
#include "Essence/Converters/WaveToS302M.h"
#include "Exceptions/BaseException.h"
#include "support/QueuedBytes.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace Vantry;
using Templates::SharedPtr;

enum Mode
{
    FROM_WAVE = 1,
    SKIPPING = 2,
    BY_SAMPLES = 4
};

UInt64 step(Essence::AES3::S302M::Source & source, unsigned int mode, UInt64 atOnce)
{
    if ((mode & SKIPPING) != 0)
        return source.skip(atOnce);
    if ((mode & BY_SAMPLES) == 0)
        return source.read(atOnce)->size();

    DataIO::Chain samples;
    UInt64 const count = source.readSamples(atOnce, samples);
    if (count > atOnce || (count != 0 && samples.data_size() < count * source.info().bytesPerSampleGroup))
        std::abort();
    return samples.data_size();
}

// No packet makes a stream longer, so each call but a few takes something.
void readAll(SharedPtr<DataIO::SliceSource> const & stream, unsigned int mode, UInt64 size)
{
    Essence::AES3::S302M::Source source(stream);
    UInt64 total = 0;
    for (UInt64 calls = 0; !source.endOfStream(); ++calls)
    {
        total += step(source, mode, 1 + (mode >> 3));
        if (calls > 3 * size)
            std::abort();
    }
    if (total > source.absoluteOffset() || source.absoluteOffset() > size)
        std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 2)
        return 0;

    unsigned int const mode = data[0];
    SharedPtr<DataIO::SliceSource> stream = Tests::queuedBytes(data + 1, size - 1);
    UInt64 streamSize = size;
    if ((mode & FROM_WAVE) != 0)
    {
        stream = SharedPtr<DataIO::SliceSource>(new Essence::Converters::WaveToS302M(stream));
        streamSize *= 10;
    }
    try
    {
        readAll(stream, mode, streamSize);
    }
    catch (Exceptions::BaseException const &)
    {
        // Refused by name, which is an answer.
    }
    return 0;
}

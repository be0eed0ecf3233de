#include "Essence/AES3/S302M/DataType.h"

#include "DataIO/BufferSliceSource.h"
#include "DataIO/SliceReader.h"
#include "DataIO/SyncWordFinder.h"
#include "Essence/AES3/AES3Info.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

namespace {

// The words Pa and Pb that a burst begins with.
struct Preamble
{
    unsigned int bits;

    // A zero byte and Pa, the first byte lowest.
    UInt32 pattern;
    UInt32 mask;

    unsigned char secondWord[3];
};

Preamble const PREAMBLES[] = {
    {16, 0x00F87200, 0x00FFFFFF, {0x1F, 0x4E}},
    {20, 0x6F872000, 0xFFFFFFFF, {0xF0, 0xE1, 0x54}},
    {24, 0x96F87200, 0xFFFFFFFF, {0x1F, 0x4E, 0xA5}},
};

// AC-3, MPEG audio in three kinds, and Dolby E (SMPTE ST 338).
Int32 const KNOWN_DATA_TYPES[] = {1, 4, 5, 8, 28};

// Two samples of two channels.
unsigned int const SILENT_WORDS = 4;

// Pa, Pb, Pc and Pd.
unsigned int const PREAMBLE_WORDS = 4;

unsigned int wordSize(Preamble const & preamble) noexcept
{
    return preamble.bits == 16 ? 2 : 3;
}

// Whether there is a whole preamble behind silence, of which `zero` is the
// last byte.
bool isPreamble(DataIO::Slice const & pcm, unsigned char const * zero, Preamble const & preamble)
{
    unsigned int const size = wordSize(preamble);
    unsigned char const * const first = zero + 1;
    UInt64 const before = static_cast<UInt64>(first - pcm.begin());
    UInt64 const left = static_cast<UInt64>(pcm.end() - first);
    return before >= SILENT_WORDS * size && left >= PREAMBLE_WORDS * size &&
           std::all_of(first - SILENT_WORDS * size, first, [](unsigned char byte) { return byte == 0; }) &&
           std::equal(first + size, first + 2 * size, preamble.secondWord);
}

// The third word holds the type in the low bits of its 16 highest.
Int32 dataTypeOf(unsigned char const * first, Preamble const & preamble)
{
    unsigned int const size = wordSize(preamble);
    Int32 const type = first[2 * size + size - 2] & 31;
    auto const known = std::find(std::begin(KNOWN_DATA_TYPES), std::end(KNOWN_DATA_TYPES), type);
    return known != std::end(KNOWN_DATA_TYPES) ? type : AES3Info::PCM;
}

Templates::SharedPtr<DataIO::SliceSource> sourceOf(DataIO::Slice const & slice)
{
    auto * const queue = new DataIO::BufferSliceSource;
    Templates::SharedPtr<DataIO::SliceSource> source(queue);
    queue->write(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(slice)));
    queue->close();
    return source;
}

}

Int32 dataTypeIn(DataIO::Slice const & pcm, unsigned int bits)
{
    Preamble const * const preamble =
        std::find_if(std::begin(PREAMBLES), std::end(PREAMBLES),
                     [bits](Preamble const & candidate) { return candidate.bits == bits; });

    DataIO::SliceReader reader(sourceOf(pcm));
    DataIO::SyncWordFinder finder(reader, preamble->pattern, preamble->mask);
    for (; finder.find(pcm.size()); reader.skip(1))
    {
        unsigned char const * const zero = pcm.begin() + reader.absoluteOffset();
        if (isPreamble(pcm, zero, *preamble))
            return dataTypeOf(zero + 1, *preamble);
    }
    return AES3Info::PCM;
}

}}}}

// Makes eight-channel elements of two streams of any bytes, and stops when
// they aren't laid out as elements are, or more than the streams give.
//
// Input: one byte for the kinds of the streams, and both of them, the first
// in the first half.

#include "Essence/AES3/S331M.h"
#include "Essence/Converters/S331MMux.h"
#include "Exceptions/BaseException.h"
#include "support/QueuedBytes.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

using namespace Vantry;
namespace S331M = Essence::AES3::S331M;

// So short that small streams make several elements.
int const SAMPLES = 24;
int const EDIT_RATE = 48000 / SAMPLES;

void add(Essence::Converters::S331MMux & mux, unsigned int kind, std::uint8_t const * data, std::size_t size)
{
    auto const stream = Tests::queuedBytes(data, size);
    switch (kind & 3)
    {
    case 0:
        return mux.addAES3Stream(stream);
    case 1:
        return mux.addWaveStream(stream);
    case 2:
        return mux.addPCMStream(stream, 24, 24, 2, 48000, 6);
    default:
        return mux.addPCMStream(stream, 16, 16, 1, 48000, 2);
    }
}

void check(DataIO::Slice const & element)
{
    S331M::ElementHeader header;
    if (element.size() != sizeof(header) + SAMPLES * S331M::SAMPLE_SIZE)
        std::abort();
    std::memcpy(static_cast<void *>(&header), element.begin(), sizeof(header));
    if (header.sampleCount != SAMPLES)
        std::abort();

    for (unsigned char const * word = element.begin() + sizeof(header); word != element.end(); word += S331M::WORD_SIZE)
        if (S331M::parity(S331M::wordAt(word) >> S331M::SAMPLE_SHIFT) != 0)
            std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 3)
        return 0;

    std::size_t const half = size / 2;
    // Each has a byte of a stream at least.
    std::size_t elementsLeft = size;
    try
    {
        Essence::Converters::S331MMux mux(EDIT_RATE);
        add(mux, data[0], data + 1, half);
        add(mux, data[0] >> 2, data + 1 + half, size - 1 - half);
        while (!mux.endOfStream())
        {
            check(*mux.read(1));
            if (elementsLeft-- == 0)
                std::abort();
        }
    }
    catch (Exceptions::BaseException const &)
    {
        // Refused by name, which is an answer.
    }
    return 0;
}

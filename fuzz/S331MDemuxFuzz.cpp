// Takes any bytes apart as eight-channel elements, and stops when that makes
// more sound than there are words, or sound of a part of a sample.
//
// Input: one byte for the channels of a stream and for what becomes of sound
// that isn't valid, one for how much comes at once, and the elements.

#include "Essence/AES3/S331M.h"
#include "Essence/Converters/S331MDemux.h"
#include "Exceptions/BaseException.h"
#include "KLV/Value.h"
#include "support/BytesSource.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace Vantry;
namespace S331M = Essence::AES3::S331M;

class Counting : public Essence::Converters::S331MDemux
{
public:
    explicit Counting(unsigned char channelsPerStream) :
        S331MDemux(channelsPerStream), sampleSize_(channelsPerStream * S331M::DECODED_SIZE)
    {
    }

    void streamInfo(unsigned int, Templates::Rational<int> const &, short) override {}

    void streamData(unsigned int, KLV::Value & samples) override
    {
        if (samples.totalLength() % sampleSize_ != 0)
            std::abort();
        while (UInt64 const got = samples.read(some_, sizeof(some_)))
            total += got;
    }

    UInt64 total = 0;

private:
    UInt64 sampleSize_;
    unsigned char some_[100];
};

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 2)
        return 0;

    Counting demux(static_cast<unsigned char>(1 << (data[0] & 3)));
    demux.ignoreValidChannelFlag((data[0] & 4) != 0);
    Tests::BytesSource source(Tests::Bytes(data + 2, data + size));
    while (!source.endOfStream())
        try
        {
            KLV::Value value(source, UInt64(data[1]) * 16 + 1);
            demux.handleData(value);
        }
        catch (Exceptions::BaseException const &)
        {
            // Refused by name; what follows is taken as a new element.
        }
    if (demux.total > size / S331M::WORD_SIZE * S331M::DECODED_SIZE)
        std::abort();
    return 0;
}

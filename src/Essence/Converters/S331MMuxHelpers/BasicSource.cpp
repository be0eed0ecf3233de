#include "Essence/Converters/S331MMuxHelpers/BasicSource.h"

#include "Essence/AES3/S331M.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

namespace S331M = AES3::S331M;

BasicSource::BasicSource(unsigned char firstChannel) noexcept : firstChannel_(firstChannel), pairCount_(0) {}

BasicSource::~BasicSource() = default;

unsigned char * BasicSource::writeSample(unsigned char * out)
{
    return writeSamples(out, 1);
}

UInt64 BasicSource::wordsSize() const noexcept
{
    return UInt64(2) * pairCount_ * S331M::WORD_SIZE;
}

void BasicSource::writeSilence(unsigned char * out, UInt64 count) const noexcept
{
    for (UInt64 i = 0; i < count; ++i, out += S331M::SAMPLE_SIZE)
    {
        unsigned char * word = out;
        for (unsigned int n = 0; n < 2 * pairCount_; ++n)
            word =
                S331M::encodeSample(word, 0, static_cast<unsigned char>(firstChannel_ + n), false, false, false, true);
    }
}

}}}}

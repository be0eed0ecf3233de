#include "Essence/Converters/S331MMuxHelpers/BasicSource.h"

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
    UInt64 const NO_SOUND = S331M::withParity(S331M::bothWords(S331M::INVALID_BIT));

    for (UInt64 i = 0; i < count; ++i, out += S331M::SAMPLE_SIZE)
    {
        unsigned char * words = out;
        for (unsigned int n = 0; n < pairCount_; ++n)
            words = S331M::putWords(words, NO_SOUND | channelsOfPair(n));
    }
}

}}}}

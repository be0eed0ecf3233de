#include "Essence/Converters/S331MMuxHelpers/NullAES3Source.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

NullAES3Source::NullAES3Source(unsigned char firstChannel) noexcept : BasicSource(firstChannel)
{
    pairCount(1);
}

NullAES3Source::~NullAES3Source() = default;

void NullAES3Source::info(unsigned char & channels, unsigned char & bits)
{
    channels = 0;
    bits = 0;
}

void NullAES3Source::prepare(unsigned short) {}

bool NullAES3Source::endOfStream() const
{
    return false;
}

unsigned char * NullAES3Source::writeSamples(unsigned char * out, unsigned short count)
{
    writeSilence(out, count);
    return out + wordsSize();
}

}}}}

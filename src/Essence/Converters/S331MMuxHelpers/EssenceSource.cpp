#include "Essence/Converters/S331MMuxHelpers/EssenceSource.h"

#include "Essence/AES3/S331M.h"

#include <algorithm>

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

EssenceSource::EssenceSource(unsigned char firstChannel) noexcept :
    BasicSource(firstChannel), blockSize_(1), buffered_(0)
{
}

EssenceSource::~EssenceSource() = default;

void EssenceSource::prepare(unsigned short count)
{
    while (buffered_ < count && fetch(count))
    {
    }
}

bool EssenceSource::endOfStream() const
{
    return buffered_ == 0 && source().endOfStream();
}

UInt64 EssenceSource::buffer(Templates::auto_ptr<DataIO::Slice> slice)
{
    UInt64 const blocks = slice->size() / blockSize_;
    slice->cropEnd(slice->size() % blockSize_);
    chain_.push_back(slice);
    buffered_ += blocks;
    return blocks;
}

unsigned char * EssenceSource::writeSamples(unsigned char * out, unsigned short count)
{
    unsigned char * at = out;
    UInt64 left = count;
    while (left != 0 && buffered_ != 0)
    {
        UInt64 const run = encodeRun(at, left);
        at += run * AES3::S331M::SAMPLE_SIZE;
        left -= run;
    }

    writeSilence(at, left);
    return out + wordsSize();
}

// Takes up to `count` blocks of the first slice and returns how many.
UInt64 EssenceSource::encodeRun(unsigned char * out, UInt64 count)
{
    DataIO::Slice & first = *chain_.begin();
    UInt64 const run = std::min(count, first.size() / blockSize_);
    encode(out, first.begin(), run);

    first.cropBegin(run * blockSize_);
    if (first.size() == 0)
        chain_.erase(chain_.begin());
    buffered_ -= run;
    return run;
}

}}}}

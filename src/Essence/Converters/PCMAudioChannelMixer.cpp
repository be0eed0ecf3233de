#include "Essence/Converters/PCMAudioChannelMixer.h"

#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/NotImplemented.h"
#include "Exceptions/OperationNotAllowed.h"
#include "Templates/Containers.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Vantry { namespace Essence { namespace Converters {

// A source with the slice that is being taken from it.
class PCMAudioChannelMixer::Source
{
public:
    VANTRY_CLASS_ALLOCATION

    Source(Templates::SharedPtr<DataIO::SliceSource> source, unsigned short bitsPerSample,
           unsigned int samplingFrequency, unsigned short blockAlign) :
        source_(std::move(source)),
        bitsPerSample_(bitsPerSample),
        samplingFrequency_(samplingFrequency),
        blockAlign_(blockAlign),
        ended_(false)
    {
    }

    unsigned short bitsPerSample() const noexcept { return bitsPerSample_; }
    unsigned int samplingFrequency() const noexcept { return samplingFrequency_; }
    unsigned short blockAlign() const noexcept { return blockAlign_; }
    bool ended() const noexcept { return ended_; }

    // Samples that lie whole in the present slice.
    UInt64 wholeBlocks() const noexcept { return slice_.size() / blockAlign_; }

    // Puts the next `count` of these `stride` bytes apart.
    void spread(UInt64 count, UInt64 stride, unsigned char * destination) noexcept
    {
        unsigned char const * from = slice_.begin();
        for (UInt64 i = 0; i < count; ++i, from += blockAlign_, destination += stride)
            std::copy_n(from, blockAlign_, destination);
        slice_.cropBegin(count * blockAlign_);
    }

    // Copies one sample, from as many slices as it lies in, and returns how
    // many bytes of it there were.
    UInt64 copyBlock(unsigned char * destination)
    {
        UInt64 copied = 0;
        while (copied < blockAlign_ && hasData())
        {
            UInt64 const part = std::min(slice_.size(), blockAlign_ - copied);
            std::copy_n(slice_.begin(), part, destination + copied);
            slice_.cropBegin(part);
            copied += part;
        }
        return copied;
    }

private:
    bool hasData()
    {
        if (slice_.size() != 0)
            return true;

        // Some sources refuse to be read at their end.
        if (!source_->endOfStream())
        {
            Templates::auto_ptr<DataIO::Slice> const next = source_->read(UInt64(blockAlign_) * samplingFrequency_);
            if (next.get() != nullptr)
                slice_ = *next;
        }
        ended_ = slice_.size() == 0;
        return !ended_;
    }

    Templates::SharedPtr<DataIO::SliceSource> source_;
    unsigned short bitsPerSample_;
    unsigned int samplingFrequency_;
    unsigned short blockAlign_;
    DataIO::Slice slice_;
    bool ended_;
};

class PCMAudioChannelMixer::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    // Fills up to `size` bytes and returns how many there were.
    UInt64 fill(unsigned char * bytes, UInt64 size)
    {
        UInt64 filled = 0;
        while (filled < size && !ended())
        {
            UInt64 const blocks = std::min(wholeBlocks(), (size - filled) / blockAlignSum);
            filled += blocks != 0 ? spread(blocks, bytes + filled) : copyBlocks(bytes + filled);
        }
        return filled;
    }

    bool ended() const noexcept
    {
        return std::any_of(sources.begin(), sources.end(), [](auto const & source) { return source->ended(); });
    }

    // More than any block has, if the number has no room.
    UInt64 bytesPerRead() const noexcept
    {
        UInt64 size = 0;
        bool const fits = !__builtin_mul_overflow(UInt64(samplesPerSecond) * blockAlignSum, sources.size(), &size);
        return fits ? size : std::numeric_limits<UInt64>::max();
    }

    Templates::vector<Templates::SharedPtr<Source>> sources;
    unsigned int samplesPerSecond = 0;
    unsigned int blockAlignSum = 0;
    UInt64 bytesProduced = 0;

private:
    // Samples that all sources have ready.
    UInt64 wholeBlocks() const noexcept
    {
        UInt64 blocks = std::numeric_limits<UInt64>::max();
        for (auto const & source : sources)
            blocks = std::min(blocks, source->wholeBlocks());
        return blocks;
    }

    UInt64 spread(UInt64 blocks, unsigned char * destination) noexcept
    {
        for (auto const & source : sources)
        {
            source->spread(blocks, blockAlignSum, destination);
            destination += source->blockAlign();
        }
        return blocks * blockAlignSum;
    }

    // One sample of each source up to the first that ends.
    UInt64 copyBlocks(unsigned char * destination)
    {
        UInt64 copied = 0;
        for (auto const & source : sources)
        {
            copied += source->copyBlock(destination + copied);
            if (source->ended())
                break;
        }
        return copied;
    }
};

PCMAudioChannelMixer::PCMAudioChannelMixer() : impl_(new Impl) {}

PCMAudioChannelMixer::~PCMAudioChannelMixer()
{
    delete impl_;
}

void PCMAudioChannelMixer::addSource(Templates::SharedPtr<DataIO::SliceSource> source, unsigned short bitsPerSample,
                                     unsigned short, unsigned short, unsigned int samplingFrequency,
                                     unsigned short blockAlign)
{
    VANTRY_CHECK(blockAlign != 0 && samplingFrequency != 0, InvalidValue, "A source without samples can't be mixed");
    if (!impl_->sources.empty())
    {
        Source const & first = *impl_->sources.front();
        VANTRY_CHECK_TEXT(first.bitsPerSample() == bitsPerSample,
                          "(*firstSource) -> bitsPerSample () == sourceProvider -> bitsPerSample ()",
                          OperationNotAllowed, "Different bits per sample received");
        VANTRY_CHECK_TEXT(first.samplingFrequency() == samplingFrequency,
                          "(*firstSource) -> samplingFrequency () == sourceProvider -> samplingFrequency ()",
                          OperationNotAllowed, "Different sampling frequency received");
    }

    impl_->sources.push_back(
        Templates::SharedPtr<Source>(new Source(std::move(source), bitsPerSample, samplingFrequency, blockAlign)));
    impl_->samplesPerSecond = samplingFrequency;
    impl_->blockAlignSum += blockAlign;
}

UInt64 PCMAudioChannelMixer::size() const
{
    return impl_->sources.size();
}

Templates::auto_ptr<DataIO::Slice> PCMAudioChannelMixer::read(UInt64)
{
    if (endOfStream())
        return Templates::auto_ptr<DataIO::Slice>();

    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(impl_->bytesPerRead());
    UInt64 const size = impl_->fill(block.block()->data(), impl_->bytesPerRead());
    impl_->bytesProduced += size;
    return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, size));
}

UInt64 PCMAudioChannelMixer::absoluteOffset() const
{
    return impl_->bytesProduced;
}

bool PCMAudioChannelMixer::endOfStream() const
{
    return impl_->ended();
}

UInt64 PCMAudioChannelMixer::skip(UInt64)
{
    VANTRY_FAIL(NotImplemented, "");
}

}}}

#include "Analyzers/WaveSound.h"

#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "WaveStream.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace Analyzers {

namespace {

// Samples of silence in a slice.
UInt64 const SILENT_SAMPLES = 4096;

}

class WaveSound::Impl
{
public:
    explicit Impl(Templates::SharedPtr<DataIO::SliceSource> wave) : stream(std::move(wave)) {}

    Templates::auto_ptr<DataIO::Slice> next(UInt64 howMuch)
    {
        if (ready.data_size() == 0 && !stream.isDone())
            stream.takeSamples(std::max<UInt64>(1, howMuch / stream.numberBlockAlign()), ready);
        return ready.data_size() != 0 ? ready.erase(ready.begin()) : silence(howMuch);
    }

    WaveStream stream;
    bool isLoaded = false;
    UInt64 taken = 0;

private:
    Templates::auto_ptr<DataIO::Slice> silence(UInt64 howMuch)
    {
        UInt64 const block = stream.numberBlockAlign();
        if (silent.block() == nullptr)
        {
            silent = DataIO::Memory::MemoryBlockFactory::instance().create(SILENT_SAMPLES * block);
            std::fill_n(silent.block()->data(), SILENT_SAMPLES * block, stream.bitsPerSample() <= 8 ? 0x80 : 0);
        }
        UInt64 const size = std::clamp<UInt64>(howMuch / block, 1, SILENT_SAMPLES) * block;
        return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(silent.block(), 0, size));
    }

    DataIO::Chain ready;
    DataIO::BlockHolder silent;
};

WaveSound::WaveSound(Templates::SharedPtr<DataIO::SliceSource> wave) : impl_(std::make_unique<Impl>(std::move(wave))) {}

WaveSound::~WaveSound() = default;

bool WaveSound::preload()
{
    if (impl_->isLoaded)
        return true;
    if (!impl_->stream.preload())
        return false;
    impl_->stream.goToSound();
    impl_->isLoaded = true;
    return true;
}

unsigned int WaveSound::samplesPerSecond() const
{
    return impl_->stream.samplesPerSecond();
}

unsigned int WaveSound::channels() const
{
    return impl_->stream.numberOfChannels();
}

unsigned int WaveSound::bytesPerSample() const
{
    return impl_->stream.numberBlockAlign() / impl_->stream.numberOfChannels();
}

bool WaveSound::isLeft() const
{
    return !impl_->stream.isDone();
}

Templates::auto_ptr<DataIO::Slice> WaveSound::read(UInt64 howMuch)
{
    Templates::auto_ptr<DataIO::Slice> slice = impl_->next(howMuch);
    impl_->taken += slice->size();
    return slice;
}

UInt64 WaveSound::absoluteOffset() const
{
    return impl_->taken;
}

bool WaveSound::endOfStream() const
{
    return false;
}

UInt64 WaveSound::skip(UInt64 howMuch)
{
    UInt64 skipped = 0;
    while (skipped < howMuch)
        skipped += read(howMuch - skipped)->size();
    return skipped;
}

}}

#include "DataIO/DataSource.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Essence/AES3/S331M.h"
#include "Essence/Converters/S331MDemux.h"
#include "Essence/Converters/S331MMux.h"
#include "KLV/Value.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <vector>

namespace {

using namespace Vantry;
namespace S331M = Essence::AES3::S331M;
using DataIO::BlockHolder;
using DataIO::Slice;

// An edit unit at 25 per second.
UInt64 const SAMPLES = 1920;
UInt64 const ELEMENT_SIZE = sizeof(S331M::ElementHeader) + SAMPLES * S331M::SAMPLE_SIZE;

BlockHolder noise(UInt64 size)
{
    BlockHolder const holder = DataIO::Memory::MemoryBlockFactory::instance().create(size);
    std::mt19937 random(1);
    std::generate_n(holder.block()->data(), size, [&] { return static_cast<unsigned char>(random()); });
    return holder;
}

// One second of noise of 8 channels at 24 bits, over and over.
class EndlessSound : public DataIO::SliceSource
{
public:
    Templates::auto_ptr<Slice> read(UInt64 howMuch) override
    {
        if (at_ == SIZE)
            at_ = 0;
        UInt64 const size = std::min(howMuch, SIZE - at_);
        at_ += size;
        return Templates::auto_ptr<Slice>(new Slice(block_.block(), at_ - size, size));
    }
    UInt64 absoluteOffset() const override { return at_; }
    bool endOfStream() const override { return false; }
    UInt64 skip(UInt64 howMuch) override { return howMuch; }

private:
    static constexpr UInt64 SIZE = 48000 * 24;

    BlockHolder block_ = noise(SIZE);
    UInt64 at_ = 0;
};

// Ones in a byte, odd or even.
std::array<unsigned char, 256> const ODD = []
{
    std::array<unsigned char, 256> odd{};
    for (unsigned int i = 0; i < odd.size(); ++i)
        odd[i] = static_cast<unsigned char>(__builtin_parity(i));
    return odd;
}();

// The nibbles of a byte, each moved to the other side.
std::array<unsigned char, 256> const RAISED = []
{
    std::array<unsigned char, 256> raised{};
    for (unsigned int i = 0; i < raised.size(); ++i)
        raised[i] = static_cast<unsigned char>(i << 4);
    return raised;
}();
std::array<unsigned char, 256> const LOWERED = []
{
    std::array<unsigned char, 256> lowered{};
    for (unsigned int i = 0; i < lowered.size(); ++i)
        lowered[i] = static_cast<unsigned char>(i >> 4);
    return lowered;
}();

void finish(benchmark::State & state, UInt64 sampleSize)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(SAMPLES * S331M::CHANNELS * sampleSize));
}

// The words of an element from tables, byte by byte.
void buildByTable(benchmark::State & state)
{
    auto const sampleSize = static_cast<unsigned int>(state.range(0));
    BlockHolder const sound = noise(SAMPLES * S331M::CHANNELS * sampleSize);
    std::vector<unsigned char> element(ELEMENT_SIZE);
    for ([[maybe_unused]] auto _ : state)
    {
        unsigned char const * in = sound.block()->data();
        unsigned char * out = element.data() + sizeof(S331M::ElementHeader);
        for (UInt64 i = 0; i < SAMPLES * S331M::CHANNELS; ++i, in += sampleSize, out += S331M::WORD_SIZE)
        {
            unsigned char const low = sampleSize == 3 ? in[0] : 0;
            unsigned char const middle = in[sampleSize - 2];
            unsigned char const high = in[sampleSize - 1];
            out[0] = static_cast<unsigned char>(RAISED[low] | i % S331M::CHANNELS);
            out[1] = LOWERED[low] | RAISED[middle];
            out[2] = LOWERED[middle] | RAISED[high];
            out[3] = static_cast<unsigned char>(LOWERED[high] | (ODD[low] ^ ODD[middle] ^ ODD[high]) << 7);
        }
        benchmark::ClobberMemory();
    }
    finish(state, sampleSize);
}
BENCHMARK(buildByTable)->Arg(2)->Arg(3);

// An element is built as fast as a table gives its words, whatever number of
// streams the sound comes in.
void build(benchmark::State & state)
{
    auto const sampleSize = static_cast<unsigned short>(state.range(0));
    auto const channels = static_cast<unsigned short>(state.range(1));
    Essence::Converters::S331MMux mux(25);
    for (unsigned int n = 0; n < S331M::CHANNELS; n += channels)
        mux.addPCMStream(Templates::SharedPtr<DataIO::SliceSource>(new EndlessSound), sampleSize * 8, sampleSize * 8,
                         channels, 48000, channels * sampleSize);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(mux.read(ELEMENT_SIZE)->begin());
    finish(state, sampleSize);
    state.SetLabel(sampleSize == 2 ? "at most 1.5 times buildByTable/2" : "at most 1.5 times buildByTable/3");
}
BENCHMARK(build)->ArgsProduct({{2, 3}, {2, 8}});

// The sound of an element from tables, byte by byte.
void takeApartByTable(benchmark::State & state)
{
    BlockHolder const element = noise(ELEMENT_SIZE);
    std::vector<unsigned char> sound(SAMPLES * S331M::CHANNELS * S331M::DECODED_SIZE);
    for ([[maybe_unused]] auto _ : state)
    {
        unsigned char const * in = element.block()->data() + sizeof(S331M::ElementHeader);
        unsigned char * out = sound.data();
        for (UInt64 i = 0; i < SAMPLES * S331M::CHANNELS; ++i, in += S331M::WORD_SIZE, out += S331M::DECODED_SIZE)
            for (unsigned int n = 0; n < S331M::DECODED_SIZE; ++n)
                out[n] = LOWERED[in[n]] | RAISED[in[n + 1]];
        benchmark::ClobberMemory();
    }
    finish(state, S331M::DECODED_SIZE);
}
BENCHMARK(takeApartByTable);

// Looks at each stream of an element and leaves it.
class SilentDemux : public Essence::Converters::S331MDemux
{
public:
    using S331MDemux::S331MDemux;

    void streamInfo(unsigned int, Templates::Rational<int> const &, short) override {}
    void streamData(unsigned int, KLV::Value & samples) override { benchmark::DoNotOptimize(samples.totalLength()); }
};

// Bytes that can be read once, as they lie in a file.
class BytesOnce : public DataIO::DataSource
{
public:
    explicit BytesOnce(Slice const & bytes) : bytes_(bytes), at_(0) {}

    UInt64 read(unsigned char * destination, UInt64 howMuch) override
    {
        UInt64 const size = std::min(howMuch, remaining());
        std::memcpy(destination, bytes_.begin() + at_, size);
        at_ += size;
        return size;
    }
    UInt64 absoluteOffset() const override { return at_; }
    bool endOfStream() const override { return remaining() == 0; }
    UInt64 remaining() const { return bytes_.size() - at_; }
    UInt64 skip(UInt64 howMuch) override
    {
        at_ += std::min(howMuch, remaining());
        return howMuch;
    }

private:
    Slice const & bytes_;
    UInt64 at_;
};

// An element is taken apart as fast as a table gives its sound, whatever
// number of streams is made of it.
void takeApart(benchmark::State & state)
{
    Essence::Converters::S331MMux mux(25);
    mux.addPCMStream(Templates::SharedPtr<DataIO::SliceSource>(new EndlessSound), 24, 24, 8, 48000, 24);
    Templates::auto_ptr<Slice> const element = mux.read(ELEMENT_SIZE);

    SilentDemux demux(static_cast<unsigned char>(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
    {
        BytesOnce source(*element);
        KLV::Value value(source, element->size());
        demux.handleData(value);
    }
    finish(state, S331M::DECODED_SIZE);
    state.SetLabel("at most 1.5 times takeApartByTable");
}
BENCHMARK(takeApart)->Arg(1)->Arg(2)->Arg(8);

}

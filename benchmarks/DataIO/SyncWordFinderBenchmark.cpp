#include "DataIO/SyncWordFinder.h"

#include "DataIO/Chain.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/SliceReader.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <random>

namespace {

using namespace Vantry;
using DataIO::BlockHolder;
using DataIO::Slice;
using Templates::auto_ptr;

char const * const HALF = "at least 0.5 of the speed of memchrAll";

UInt64 const SIZE = 4 << 20;

enum Content
{
    PICTURES, // random, like compressed essence
    ZEROS,    // black, or stuffing
    AUDIO,    // small numbers: many bytes of 0, 1 and FFh
};

BlockHolder block(Content content)
{
    BlockHolder holder = DataIO::Memory::MemoryBlockFactory::instance().create(SIZE);
    std::mt19937 random(1);
    std::generate_n(holder.block()->data(), SIZE,
                    [&]
                    {
                        unsigned int const number = random();
                        switch (content)
                        {
                        case PICTURES:
                            return static_cast<unsigned char>(number);
                        case ZEROS:
                            return static_cast<unsigned char>(0);
                        default:
                            return static_cast<unsigned char>(int(number % 3) - 1);
                        }
                    });

    // No start code but the ones that are wanted.
    unsigned char * const bytes = holder.block()->data();
    for (UInt64 i = 2; i < SIZE; ++i)
        if (bytes[i - 2] == 0 && bytes[i - 1] == 0 && bytes[i] == 1)
            bytes[i] = 2;
    return holder;
}

// All places of one byte, as the standard library finds them.
void memchrAll(benchmark::State & state)
{
    BlockHolder const holder = block(static_cast<Content>(state.range(0)));
    unsigned char const * const end = holder.block()->data() + SIZE;
    for ([[maybe_unused]] auto _ : state)
    {
        unsigned char const * at = holder.block()->data();
        while (void const * hit = std::memchr(at, 1, static_cast<std::size_t>(end - at)))
            at = static_cast<unsigned char const *>(hit) + 1;
        benchmark::DoNotOptimize(at);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(SIZE));
}
BENCHMARK(memchrAll)->Arg(PICTURES)->Arg(ZEROS)->Arg(AUDIO);

class NoSource : public DataIO::SliceSource
{
public:
    auto_ptr<Slice> read(UInt64) override { return auto_ptr<Slice>(new Slice); }
    UInt64 absoluteOffset() const override { return SIZE; }
    bool endOfStream() const override { return true; }
    UInt64 skip(UInt64) override { return 0; }
};

// Goes through the same bytes for a start code that isn't there.
void findStartCode(benchmark::State & state)
{
    BlockHolder const holder = block(static_cast<Content>(state.range(0)));
    DataIO::SliceReader reader{Templates::SharedPtr<DataIO::SliceSource>(new NoSource)};
    DataIO::SyncWordFinder finder(reader, 0x00010000, 0x00FFFFFF);
    for ([[maybe_unused]] auto _ : state)
    {
        reader.unget(auto_ptr<Slice>(new Slice(holder.block(), 0, SIZE)));
        benchmark::DoNotOptimize(finder.find(SIZE));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(SIZE));
    state.SetLabel(HALF);
}
BENCHMARK(findStartCode)->Arg(PICTURES)->Arg(ZEROS)->Arg(AUDIO);

}

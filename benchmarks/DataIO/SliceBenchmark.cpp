#include "DataIO/Chain.h"
#include "DataIO/Memory/MemoryBlockFactory.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Vantry;
using DataIO::BlockHolder;
using DataIO::Chain;
using DataIO::Slice;
using Templates::auto_ptr;

char const * const AT_MOST = "at most 25 ns";

UInt64 const BLOCK_SIZE = 65536;

BlockHolder block()
{
    return DataIO::Memory::MemoryBlockFactory::instance().create(BLOCK_SIZE);
}

// Each of the following makes one slice and drops one: a cell comes and goes
// without a lock, and a reference is counted.
void makeAndDrop(benchmark::State & state)
{
    BlockHolder const holder = block();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(auto_ptr<Slice>(new Slice(holder.block(), 0, BLOCK_SIZE)));
    state.SetLabel(AT_MOST);
}
BENCHMARK(makeAndDrop);

void copyAndDrop(benchmark::State & state)
{
    Slice const slice(block().block(), 0, BLOCK_SIZE);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(auto_ptr<Slice>(new Slice(slice)));
    state.SetLabel(AT_MOST);
}
BENCHMARK(copyAndDrop);

void spliceAndDrop(benchmark::State & state)
{
    Slice slice(block().block(), 0, BLOCK_SIZE);
    for ([[maybe_unused]] auto _ : state)
    {
        auto_ptr<Slice> const rest = slice.splice(slice.begin() + 100);
        slice.merge(*rest);
    }
    state.SetLabel(AT_MOST);
}
BENCHMARK(spliceAndDrop);

// A long chain takes its cells from the shared ones and gives them back: one
// slice made and dropped.
void fillAndClear(benchmark::State & state)
{
    UInt64 const COUNT = 10000;
    Slice const slice(block().block(), 0, BLOCK_SIZE);
    Chain chain;
    while (state.KeepRunningBatch(COUNT))
    {
        for (UInt64 i = 0; i < COUNT; ++i)
            chain.push_back(auto_ptr<Slice>(new Slice(slice)));
        chain.clear();
    }
}
BENCHMARK(fillAndClear);

// Chops packets off a chain onto another, where they are merged again. No
// byte moves, so the time stays flat while the packet grows.
void chopPacket(benchmark::State & state)
{
    UInt64 const size = static_cast<UInt64>(state.range(0));
    Chain chains[2];
    for (int i = 0; i < 16; ++i)
        chains[0].push_back(auto_ptr<Slice>(new Slice(block().block(), 0, BLOCK_SIZE)));

    int from = 0;
    for ([[maybe_unused]] auto _ : state)
    {
        chains[from].chopBegin(size, chains[1 - from]);
        if (chains[from].empty())
            from = 1 - from;
    }
}
BENCHMARK(chopPacket)->Arg(64)->Arg(4096)->Arg(60000);

}

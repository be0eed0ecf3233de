#include "DataIO/Memory/MemoryDataSink.h"
#include "DataIO/Memory/MemoryDataSource.h"
#include "KLV/Value.h"
#include "Types/Array.h"
#include "Types/Factories/BaseTypeFactory.h"
#include "Types/Int64.h"
#include "Types/Rational.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

using namespace Vantry;

unsigned const VALUES = 1024;

using Source = DataIO::Memory::MemoryDataSource;
using Sink = DataIO::Memory::MemoryDataSink;

// Moves values of 8 bytes from a source in memory to a sink in memory.
template <class Move>
void moveValues(benchmark::State & state, Move const & move)
{
    std::vector<unsigned char> const bytes(VALUES * sizeof(Int64), 7);
    Source source(bytes.data(), bytes.size());
    while (state.KeepRunningBatch(VALUES))
    {
        Sink sink(bytes.size());
        source.seek(0);
        for (unsigned i = 0; i < VALUES; ++i)
        {
            KLV::Value value(source, sizeof(Int64));
            move(value, sink);
        }
        benchmark::DoNotOptimize(sink.rawBuffer());
    }
    state.SetLabel("at most 100 ns");
}

void moveInt64(benchmark::State & state)
{
    moveValues(state, [](KLV::Value & value, Sink & sink) { Types::Int64(value).serialize(sink); });
}
BENCHMARK(moveInt64);

// The value is made by its identifier, as metadata is read.
void moveMadeValue(benchmark::State & state)
{
    auto & factory = Types::Factories::BaseTypeFactory::instance();
    moveValues(state, [&](KLV::Value & value, Sink & sink)
               { factory.create(value, Types::Identifiers::Int64)->serialize(sink); });
}
BENCHMARK(moveMadeValue);

// An array of 10,000 labels: what an element costs, its share of the header
// included.
void readLabels(benchmark::State & state)
{
    unsigned char const HEADER[] = {0, 0, 0x27, 0x10, 0, 0, 0, 16};
    std::vector<unsigned char> bytes(sizeof(HEADER) + 10'000 * 16);
    std::copy(std::begin(HEADER), std::end(HEADER), bytes.begin());
    Source source(bytes.data(), bytes.size());
    for (auto _ : state)
    {
        source.seek(0);
        KLV::Value value(source, bytes.size());
        Types::Array const labels(value, Types::Identifiers::UL);
        benchmark::DoNotOptimize(labels.size());
    }
    state.SetLabel("at most 1000000 ns");
}
BENCHMARK(readLabels);

void compareRationals(benchmark::State & state)
{
    Types::Rational const left(30000, 1001);
    Types::Rational const right(60000, 2002);
    for (auto _ : state)
        benchmark::DoNotOptimize(left < right);
    state.SetLabel("at most 25 ns");
}
BENCHMARK(compareRationals);

}

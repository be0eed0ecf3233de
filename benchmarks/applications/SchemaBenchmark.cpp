#include "Schema/Dictionaries.h"

#include <benchmark/benchmark.h>

namespace {

// The default dictionary is ready in under 3 ms.
void builtInDictionary(benchmark::State & state)
{
    state.SetLabel("at most 3000000 ns");
    for (auto _ : state)
        benchmark::DoNotOptimize(Vantry::Schema::builtInDictionary());
}
BENCHMARK(builtInDictionary)->Unit(benchmark::kMillisecond);

}

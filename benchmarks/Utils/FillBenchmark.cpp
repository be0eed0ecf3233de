#include "Utils/Fill.h"

#include "DataIO/DataSink.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

using namespace Vantry;

namespace {

// Takes bytes into one buffer, always at its start.
class BufferSink : public DataIO::DataSink
{
public:
    explicit BufferSink(UInt64 size) : buffer_(size) {}

    void write(unsigned char const * source, UInt64 howMuch) override
    {
        std::memcpy(buffer_.data(), source, howMuch);
        benchmark::ClobberMemory();
    }

    UInt64 absoluteOffset() const override { return 0; }

private:
    std::vector<unsigned char> buffer_;
};

void finish(benchmark::State & state)
{
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void copyBytes(benchmark::State & state)
{
    auto const size = static_cast<UInt64>(state.range(0));
    std::vector<unsigned char> const source(size);
    BufferSink sink(size);
    while (state.KeepRunning())
        sink.write(source.data(), size);
    finish(state);
}

// A fill item costs what it takes to copy as many bytes, and key and length.
void writeFill(benchmark::State & state)
{
    auto const size = static_cast<UInt64>(state.range(0));
    BufferSink sink(size);
    while (state.KeepRunning())
        Utils::writeFillKLV(sink, size, 4);
    finish(state);
    state.SetLabel("at most 1.2 times copyBytes");
}

BENCHMARK(copyBytes)->Arg(64 << 10)->Arg(1 << 20);
BENCHMARK(writeFill)->Arg(64 << 10)->Arg(1 << 20);

}

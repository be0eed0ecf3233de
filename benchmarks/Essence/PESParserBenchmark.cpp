#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/SliceSource.h"
#include "Essence/MPEG/PESParser.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <iterator>

namespace {

using namespace Vantry;
using DataIO::BlockHolder;
using DataIO::Slice;

UInt64 const SIZE = 4 << 20;
UInt64 const SLICE_SIZE = 65536;

// At 1 GB/s.
char const * const WANTED = "at most 4194304 ns";

// A stream of video packets, each with a time stamp; a packet of size 0 is as
// long as a picture, and doesn't tell.
BlockHolder packets(UInt64 packetSize)
{
    bool const isOpen = packetSize == 0;
    UInt64 const distance = isOpen ? 100'000 : packetSize;
    BlockHolder const holder = DataIO::Memory::MemoryBlockFactory::instance().create(SIZE);
    std::fill_n(holder.block()->data(), SIZE, static_cast<unsigned char>(0x55));
    UInt64 const length = isOpen ? 0 : packetSize - 6;
    unsigned char const start[] = {
        0, 0, 1, 0xE0, static_cast<unsigned char>(length >> 8), static_cast<unsigned char>(length), 0x81, 0x80, 5, 0x21,
        0, 1, 0, 1};
    for (UInt64 at = 0; at + distance <= SIZE; at += distance)
        std::copy(std::begin(start), std::end(start), holder.block()->data() + at);
    return holder;
}

class BlockSlices : public DataIO::SliceSource
{
public:
    explicit BlockSlices(BlockHolder block) : block_(std::move(block)) {}

    Templates::auto_ptr<Slice> read(UInt64) override
    {
        UInt64 const size = std::min(SLICE_SIZE, SIZE - at_);
        at_ += size;
        return Templates::auto_ptr<Slice>(new Slice(block_.block(), at_ - size, size));
    }
    UInt64 absoluteOffset() const override { return at_; }
    bool endOfStream() const override { return at_ == SIZE; }
    UInt64 skip(UInt64 howMuch) override
    {
        UInt64 const size = std::min(howMuch, SIZE - at_);
        at_ += size;
        return size;
    }

private:
    BlockHolder block_;
    UInt64 at_ = 0;
};

// The payload comes as slices of the source's blocks. What counts is the
// number of packets, where they tell their length, and else the search.
void parsePackets(benchmark::State & state)
{
    BlockHolder const holder = packets(static_cast<UInt64>(state.range(0)));
    for ([[maybe_unused]] auto _ : state)
    {
        Essence::MPEG::PESParser parser(Templates::SharedPtr<DataIO::SliceSource>(new BlockSlices(holder)), 0, false);
        while (!parser.endOfStream())
            benchmark::DoNotOptimize(parser.read(SLICE_SIZE));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(SIZE));
    state.SetLabel(WANTED);
}
BENCHMARK(parsePackets)->Arg(2048)->Arg(65536)->Arg(0);

}

#include "DataIO/BufferSliceSource.h"
#include "DataIO/Chain.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Essence/AES3/S302M/Header.h"
#include "Essence/AES3/S302M/Source.h"
#include "Essence/Converters/PCMToWave.h"
#include "Essence/Converters/WaveToS302M.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <random>

namespace {

using namespace Vantry;
using Templates::SharedPtr;

char const * const DECODING = "at most 1.5 times tableDecode";
char const * const ENCODING = "at most 1.5 times tableEncode";

// Stereo, as both loops and the library take it.
UInt64 const SAMPLES = 1 << 20;

std::array<unsigned char, 256> reversals()
{
    std::array<unsigned char, 256> table{};
    for (unsigned int byte = 0; byte < 256; ++byte)
        for (unsigned int bit = 0; bit < 8; ++bit)
            table[byte] = static_cast<unsigned char>(table[byte] | (byte >> bit & 1) << (7 - bit));
    return table;
}

std::array<unsigned char, 256> const REVERSED = reversals();

UInt64 pcmSize(UInt64 bits)
{
    return SAMPLES * 2 * (bits / 8);
}

SharedPtr<DataIO::SliceSource> sourceOf(DataIO::Slice const & slice)
{
    auto * const queue = new DataIO::BufferSliceSource;
    SharedPtr<DataIO::SliceSource> source(queue);
    queue->write(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(slice)));
    queue->close();
    return source;
}

DataIO::Slice randomPCM(UInt64 bits)
{
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(pcmSize(bits));
    std::mt19937 random(1);
    std::generate_n(block.block()->data(), pcmSize(bits), [&] { return static_cast<unsigned char>(random()); });
    return DataIO::Slice(block.block(), 0, pcmSize(bits));
}

SharedPtr<DataIO::SliceSource> packetsOf(DataIO::Slice const & pcm, UInt64 bits)
{
    Essence::Converters::WaveHeaderStructure wave;
    wave.bitsPerSample = static_cast<unsigned short>(bits);
    wave.channels = 2;
    wave.blockAlign = static_cast<unsigned short>(2 * (bits / 8));
    wave.samplesPerSecond = 48000;
    wave.formatTag = 1;
    SharedPtr<DataIO::SliceSource> const header(new Essence::Converters::PCMToWave(sourceOf(pcm), wave));
    return SharedPtr<DataIO::SliceSource>(new Essence::Converters::WaveToS302M(header));
}

DataIO::Slice packetStream(UInt64 bits)
{
    DataIO::Slice const pcm = randomPCM(bits);
    SharedPtr<DataIO::SliceSource> const packets = packetsOf(pcm, bits);
    DataIO::Chain stream;
    while (!packets->endOfStream())
        stream.push_back(packets->read(65536));
    return *stream.makeSlice(0, stream.data_size());
}

unsigned char joined(unsigned int high, unsigned int low)
{
    return REVERSED[(high << 4 | low >> 4) & 255];
}

// One look into a table for each byte of PCM.
void tableDecode(benchmark::State & state)
{
    UInt64 const size = static_cast<UInt64>(state.range(0)) / 8;
    DataIO::Slice const stream = packetStream(size * 8);
    UInt64 const headerSize = Essence::AES3::S302M::Header::size();
    for ([[maybe_unused]] auto _ : state)
        for (unsigned char const * packet = stream.begin(); packet != stream.end();)
        {
            UInt64 const payload = UInt64(packet[0]) << 8 | packet[1];
            UInt64 const pairs = payload / (2 * size + 1);
            DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(pairs * 2 * size);
            unsigned char * out = block.block()->data();
            unsigned char const * in = packet + headerSize;
            for (UInt64 i = 0; i < pairs; ++i, in += 2 * size + 1)
            {
                for (UInt64 byte = 0; byte < size; ++byte)
                    *out++ = REVERSED[in[byte]];
                for (UInt64 byte = size; byte < 2 * size; ++byte)
                    *out++ = joined(in[byte], in[byte + 1]);
            }
            benchmark::DoNotOptimize(block.block()->data());
            packet += headerSize + payload;
        }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pcmSize(size * 8)));
}
BENCHMARK(tableDecode)->Arg(16)->Arg(24);

// A stream of packets as PCM, with its headers and channel status.
void decode(benchmark::State & state)
{
    UInt64 const bits = static_cast<UInt64>(state.range(0));
    DataIO::Slice const stream = packetStream(bits);
    for ([[maybe_unused]] auto _ : state)
    {
        Essence::AES3::S302M::Source source(sourceOf(stream));
        while (!source.endOfStream())
            benchmark::DoNotOptimize(source.read(65536)->begin());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pcmSize(bits)));
    state.SetLabel(DECODING);
}
BENCHMARK(decode)->Arg(16)->Arg(24);

// One look into a table for each byte of PCM, and its halves put together.
void tableEncode(benchmark::State & state)
{
    UInt64 const size = static_cast<UInt64>(state.range(0)) / 8;
    UInt64 const pairsAtOnce = 65535 / (2 * size + 1);
    DataIO::Slice const pcm = randomPCM(size * 8);
    for ([[maybe_unused]] auto _ : state)
        for (UInt64 done = 0; done < SAMPLES;)
        {
            UInt64 const pairs = std::min(pairsAtOnce, SAMPLES - done);
            DataIO::BlockHolder const block =
                DataIO::Memory::MemoryBlockFactory::instance().create(pairs * (2 * size + 1));
            unsigned char * out = block.block()->data();
            unsigned char const * in = pcm.begin() + done * 2 * size;
            for (UInt64 i = 0; i < pairs; ++i, in += 2 * size)
            {
                for (UInt64 byte = 0; byte < size; ++byte)
                    *out++ = REVERSED[in[byte]];
                unsigned int last = 0;
                for (UInt64 byte = size; byte < 2 * size; ++byte)
                {
                    unsigned int const next = REVERSED[in[byte]];
                    *out++ = static_cast<unsigned char>(last << 4 | next >> 4);
                    last = next;
                }
                *out++ = static_cast<unsigned char>(last << 4);
            }
            benchmark::DoNotOptimize(block.block()->data());
            done += pairs;
        }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pcmSize(size * 8)));
}
BENCHMARK(tableEncode)->Arg(16)->Arg(24);

// A wave as a stream of packets.
void encode(benchmark::State & state)
{
    UInt64 const bits = static_cast<UInt64>(state.range(0));
    DataIO::Slice const pcm = randomPCM(bits);
    for ([[maybe_unused]] auto _ : state)
    {
        SharedPtr<DataIO::SliceSource> const packets = packetsOf(pcm, bits);
        while (!packets->endOfStream())
            benchmark::DoNotOptimize(packets->read(65539)->begin());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pcmSize(bits)));
    state.SetLabel(ENCODING);
}
BENCHMARK(encode)->Arg(16)->Arg(24);

}

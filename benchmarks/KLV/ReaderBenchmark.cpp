#include "KLV/Reader.h"

#include "ByteCoders/BER.h"
#include "DataIO/File/FileDataSource.h"
#include "DataIO/Memory/MemoryDataSource.h"
#include "KLV/FillItem.h"
#include "Platform/Text.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using namespace Vantry;

namespace {

std::size_t const KEY_SIZE = 16;
unsigned char const LENGTH_SIZE = 4;
std::size_t const HEAD_SIZE = KEY_SIZE + LENGTH_SIZE;

UInt64 const STREAM_SIZE = 64 << 20;
UInt64 const MOST_PACKETS = 20000;
int const BUFFER_SIZE = 65536;

UInt64 packetCount(UInt64 packetSize)
{
    return std::min(MOST_PACKETS, STREAM_SIZE / packetSize);
}

// Fill items of `packetSize` bytes each.
std::vector<unsigned char> streamOf(UInt64 packetSize)
{
    std::vector<unsigned char> packet(packetSize);
    std::copy_n(KLV::fillItemKey().rawBuffer(), KEY_SIZE, packet.begin());
    ByteCoders::codeBER(packetSize - HEAD_SIZE, LENGTH_SIZE, packet.data() + KEY_SIZE);

    std::vector<unsigned char> stream;
    for (UInt64 i = 0; i < packetCount(packetSize); ++i)
        stream.insert(stream.end(), packet.begin(), packet.end());
    return stream;
}

class StreamFile
{
public:
    explicit StreamFile(UInt64 packetSize) :
        path_(std::filesystem::temp_directory_path() / ("vantry-walk-" + std::to_string(packetSize)))
    {
        std::vector<unsigned char> const stream = streamOf(packetSize);
        std::ofstream file(path_, std::ios::binary);
        file.write(reinterpret_cast<char const *>(stream.data()), static_cast<std::streamsize>(stream.size()));
    }

    StreamFile(StreamFile const &) = delete;
    StreamFile & operator=(StreamFile const &) = delete;
    ~StreamFile() { std::filesystem::remove(path_); }

    std::string name() const { return path_.string(); }

private:
    std::filesystem::path path_;
};

void expectCount(benchmark::State & state, UInt64 packets)
{
    if (packets != packetCount(static_cast<UInt64>(state.range(0))))
        state.SkipWithError("the walk lost its way");
}

void walk(benchmark::State & state, DataIO::RandomAccessDataSource & source)
{
    while (state.KeepRunning())
    {
        source.seek(0);
        KLV::Reader reader(source);
        UInt64 packets = 0;
        for (UInt64 skipped = 0; !source.endOfStream(); ++packets)
            reader.nextKLV(skipped, 0);
        expectCount(state, packets);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<Int64>(packetCount(static_cast<UInt64>(state.range(0)))));
    state.SetLabel("at most 3 times bareLoop");
}

// A walk over the packets of a file, values passed over, costs no more than
// a loop that does nothing but to find the next packet, in stdio with the
// same buffer.
void walkFile(benchmark::State & state)
{
    StreamFile const file(static_cast<UInt64>(state.range(0)));
    DataIO::File::FileDataSource source(Platform::stringToWstring(file.name().c_str()).c_str(), BUFFER_SIZE);
    walk(state, source);
}

void walkMemory(benchmark::State & state)
{
    std::vector<unsigned char> const stream = streamOf(static_cast<UInt64>(state.range(0)));
    DataIO::Memory::MemoryDataSource source(stream.data(), stream.size());
    walk(state, source);
}

UInt64 walkBare(std::FILE * file)
{
    UInt64 packets = 0;
    unsigned char head[HEAD_SIZE];
    for (; std::fread(head, 1, HEAD_SIZE, file) == HEAD_SIZE; ++packets)
    {
        UInt64 length = 0;
        for (std::size_t i = KEY_SIZE + 1; i < HEAD_SIZE; ++i)
            length = length << 8 | head[i];
        std::fseek(file, static_cast<long>(length), SEEK_CUR);
    }
    return packets;
}

void bareLoop(benchmark::State & state)
{
    StreamFile const file(static_cast<UInt64>(state.range(0)));
    std::vector<char> buffer(BUFFER_SIZE);
    std::FILE * const stream = std::fopen(file.name().c_str(), "rb");
    if (stream == nullptr)
        return state.SkipWithError("no temporary file");
    std::setvbuf(stream, buffer.data(), _IOFBF, buffer.size());

    while (state.KeepRunning())
    {
        std::rewind(stream);
        expectCount(state, walkBare(stream));
    }
    std::fclose(stream);
}

BENCHMARK(bareLoop)->Arg(100)->Arg(4096)->Arg(409600);
BENCHMARK(walkFile)->Arg(100)->Arg(4096)->Arg(409600);
BENCHMARK(walkMemory)->Arg(100)->Arg(4096)->Arg(409600);

}

#include "MXFIO/EssenceReader.h"

#include "DataIO/File/FileDataSource.h"
#include "KLV/Packet.h"
#include "MXFIO/ElementEditUnit.h"
#include "Platform/Text.h"
#include "support/EssencePackages.h"
#include "support/FileBytes.h"
#include "support/OpenFile.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <random>
#include <vector>

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

unsigned int const UNITS = 2000;
std::size_t const BLOCK = 131072;
int const BUFFER_SIZE = 65536;

// A file on disk with picture and four tracks of sound in packets of one size,
// and an index entry for each edit unit.
class DiskFile
{
public:
    explicit DiskFile(std::size_t valueSize) :
        path_(std::filesystem::temp_directory_path() / "vantry-essence-benchmark.mxf")
    {
        EssenceContainer container = {1, 25, UNITS, {PICTURE_ELEMENT}};
        for (unsigned int i = 1; i <= 4; ++i)
            container.trackNumbers.push_back(SOUND_ELEMENT + i);
        container.valueSize = valueSize;

        packages_.addContainer(container);
        for (unsigned int i = 1; i <= 5; ++i)
            packages_.addTrack(packages_.material, i, 0, 25, UNITS, {{1, i, 0, UNITS}});
        writeFile(path_, MXFFile({{HEADER}, container.part(), {FOOTER}}).bytes());
    }

    DiskFile(DiskFile const &) = delete;
    DiskFile & operator=(DiskFile const &) = delete;
    ~DiskFile() { std::filesystem::remove(path_); }

    std::filesystem::path const & path() const { return path_; }
    EssencePackages const & packages() const { return packages_; }

private:
    std::filesystem::path path_;
    EssencePackages packages_;
};

// A file that is played.
struct Player
{
    explicit Player(DiskFile const & file) :
        source(Platform::stringToWstring(file.path().c_str()).c_str(), BUFFER_SIZE),
        reader(source, Tests::Schema().dictionary(), SEARCH_LIMIT),
        essence(reader, file.packages().preface, file.packages().material, true, false, {})
    {
    }

    // Reads an element with all its bytes.
    bool next()
    {
        if (!essence.nextElementEditUnit(4096, unit))
            return false;
        value.resize(unit.packetBytes);
        unit.packet->value().readValue(value.data(), value.size());
        return true;
    }

    DataIO::File::FileDataSource source;
    MXFIO::Reader2 reader;
    MXFIO::EssenceReader essence;
    MXFIO::ElementEditUnit unit;
    std::vector<unsigned char> value;
};

// The bytes of a file, as cat reads them.
void readFileInBlocks(benchmark::State & state)
{
    DiskFile const file(static_cast<std::size_t>(state.range(0)));
    std::vector<unsigned char> block(BLOCK);
    for (auto _ : state)
    {
        int const descriptor = ::open(file.path().c_str(), O_RDONLY);
        while (::read(descriptor, block.data(), block.size()) > 0)
            benchmark::DoNotOptimize(block.data());
        ::close(descriptor);
    }
}
BENCHMARK(readFileInBlocks)->Arg(2000)->Arg(40000)->Unit(benchmark::kMillisecond);

// Playing through a file in step costs little more than reading its bytes.
void playInStep(benchmark::State & state)
{
    DiskFile const file(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        Player player(file);
        while (player.next())
            benchmark::DoNotOptimize(player.value.data());
    }
    state.SetLabel("at most 1.3 times readFileInBlocks");
}
BENCHMARK(playInStep)->Arg(2000)->Arg(40000)->Unit(benchmark::kMillisecond);

// So does playing as it is stored.
void playInFileOrder(benchmark::State & state)
{
    DiskFile const file(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        Player player(file);
        player.essence.indexTableHandlingMode(MXFIO::INDEX_TABLE_IGNORED);
        while (player.next())
            benchmark::DoNotOptimize(player.value.data());
    }
    state.SetLabel("at most 1.3 times readFileInBlocks");
}
BENCHMARK(playInFileOrder)->Arg(2000)->Arg(40000)->Unit(benchmark::kMillisecond);

// The same edit units for all.
class RandomUnits
{
public:
    Int64 next() { return static_cast<Int64>(numbers_() % UNITS); }

private:
    std::minstd_rand numbers_;
};

// A picture out of a file whose places are known beforehand.
void readPlaces(benchmark::State & state)
{
    std::size_t const size = static_cast<std::size_t>(state.range(0));
    DiskFile const file(size);
    std::vector<unsigned char> value(size);
    int const descriptor = ::open(file.path().c_str(), O_RDONLY);
    RandomUnits units;
    for (auto _ : state)
    {
        auto const offset = static_cast<off_t>(static_cast<std::size_t>(units.next()) * 5 * (size + 20));
        benchmark::DoNotOptimize(::pread(descriptor, value.data(), value.size(), offset));
    }
    ::close(descriptor);
}
BENCHMARK(readPlaces)->Arg(2000)->Arg(40000);

// A seek to any time and the picture there.
void seekAndRead(benchmark::State & state)
{
    DiskFile const file(static_cast<std::size_t>(state.range(0)));
    Player player(file);
    RandomUnits units;
    for (auto _ : state)
    {
        player.essence.seek({units.next(), 25});
        player.next();
        benchmark::DoNotOptimize(player.value.data());
    }
    state.SetLabel("at most 1.5 times readPlaces");
}
BENCHMARK(seekAndRead)->Arg(2000)->Arg(40000);

}

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

unsigned int const TRACKS = 5;
std::size_t const FILE_SIZE = 100000000;
std::size_t const BLOCK = 131072;

// Edit units of a file with values of this size.
unsigned int unitsOf(std::size_t valueSize)
{
    return static_cast<unsigned int>(FILE_SIZE / TRACKS / valueSize);
}

// A file on disk of 100 MB with picture and four tracks of sound in packets of
// one size, and an index entry for each edit unit.
class DiskFile
{
public:
    explicit DiskFile(std::size_t valueSize) :
        path_(std::filesystem::temp_directory_path() / "vantry-essence-benchmark.mxf")
    {
        EssenceContainer container = {1, 25, unitsOf(valueSize), {PICTURE_ELEMENT}};
        for (unsigned int i = 1; i < TRACKS; ++i)
            container.trackNumbers.push_back(SOUND_ELEMENT + i);
        container.valueSize = valueSize;

        packages_.addContainer(container);
        for (unsigned int i = 1; i <= TRACKS; ++i)
            packages_.addTrack(packages_.material, i, 0, 25, container.units, {{1, i, 0, container.units}});
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
        source(Platform::stringToWstring(file.path().c_str()).c_str(), -1),
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
BENCHMARK(readFileInBlocks)->Arg(10000)->Arg(200000)->Unit(benchmark::kMillisecond);

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
BENCHMARK(playInStep)->Arg(10000)->Arg(200000)->Unit(benchmark::kMillisecond);

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
BENCHMARK(playInFileOrder)->Arg(10000)->Arg(200000)->Unit(benchmark::kMillisecond);

// The same edit units for all.
class RandomUnits
{
public:
    explicit RandomUnits(std::size_t valueSize) : units_(unitsOf(valueSize)) {}

    Int64 next() { return static_cast<Int64>(numbers_() % units_); }

private:
    unsigned int const units_;
    std::minstd_rand numbers_;
};

// An edit unit of all tracks out of a file whose places are known beforehand.
void readPlaces(benchmark::State & state)
{
    std::size_t const size = static_cast<std::size_t>(state.range(0));
    DiskFile const file(size);
    std::vector<unsigned char> unit(TRACKS * (size + 20));
    int const descriptor = ::open(file.path().c_str(), O_RDONLY);
    RandomUnits units(size);
    for (auto _ : state)
    {
        auto const offset = static_cast<off_t>(static_cast<std::size_t>(units.next()) * unit.size());
        benchmark::DoNotOptimize(::pread(descriptor, unit.data(), unit.size(), offset));
    }
    ::close(descriptor);
}
BENCHMARK(readPlaces)->Arg(10000)->Arg(200000);

// A seek to any time and the essence of all tracks there.
void seekAndRead(benchmark::State & state)
{
    DiskFile const file(static_cast<std::size_t>(state.range(0)));
    Player player(file);
    RandomUnits units(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        player.essence.seek({units.next(), 25});
        for (unsigned int i = 0; i < TRACKS; ++i)
            player.next();
        benchmark::DoNotOptimize(player.value.data());
    }
    state.SetLabel("at most 1.5 times readPlaces");
}
BENCHMARK(seekAndRead)->Arg(10000)->Arg(200000);

}

#include "MXFIO/ContentStorageReader.h"

#include "DataIO/File/FileDataSource.h"
#include "KLV/Packet.h"
#include "Platform/Text.h"
#include "support/EssenceFile.h"
#include "support/FileBytes.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <filesystem>
#include <random>
#include <string>
#include <unistd.h>

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

unsigned int const SEEKS = 10000;
UInt64 const ESSENCE_SIZE = 100000000;

// A file on disk of 100 MB, with an index entry for each edit unit.
class DiskFile
{
public:
    explicit DiskFile(unsigned int editUnitSize) :
        editUnitSize_(editUnitSize),
        path_(std::filesystem::temp_directory_path() /
              ("vantry-essence-benchmark-" + std::to_string(getpid()) + ".mxf"))
    {
        Bytes body;
        body.reserve(ESSENCE_SIZE + editUnitSize);
        for (unsigned int i = 0; i < editUnits(); ++i)
            body += element(PICTURE, i, editUnitSize - 20);

        Bytes index;
        for (unsigned int from = 0; from < editUnits(); from += ENTRIES)
            index += variableIndex(from, entries(from, std::min(from + ENTRIES, editUnits())));
        MXFFile const file(
            {{HEADER, CLOSED, {}, std::move(body), BODY_SID}, {FOOTER, CLOSED, {}, {}, 0, index, INDEX_SID}});
        writeFile(path_, file.bytes());
    }

    DiskFile(DiskFile const &) = delete;
    DiskFile & operator=(DiskFile const &) = delete;
    ~DiskFile() { std::filesystem::remove(path_); }

    std::filesystem::path const & path() const { return path_; }
    unsigned int editUnits() const { return static_cast<unsigned int>(ESSENCE_SIZE / editUnitSize_); }

    // The edit units that are read: any, in the same order each time.
    std::vector<unsigned int> choice() const
    {
        std::mt19937 random(1);
        std::vector<unsigned int> numbers(SEEKS);
        for (unsigned int & number : numbers)
            number = static_cast<unsigned int>(random()) % editUnits();
        return numbers;
    }

private:
    // What an array of 65535 bytes holds.
    static unsigned int const ENTRIES = 5000;

    std::vector<IndexTables::IndexEntry> entries(unsigned int from, unsigned int to) const
    {
        std::vector<IndexTables::IndexEntry> result;
        for (unsigned int i = from; i < to; ++i)
            result.emplace_back(UInt64(i) * editUnitSize_);
        return result;
    }

    unsigned int editUnitSize_;
    std::filesystem::path path_;
};

// The yardstick: the same bytes by bare calls to the system.
void readBare(benchmark::State & state)
{
    DiskFile const file(static_cast<unsigned int>(state.range(0)));
    auto const size = static_cast<std::size_t>(state.range(0));
    Bytes buffer(size);
    int const descriptor = open(file.path().c_str(), O_RDONLY);
    auto const start = static_cast<off_t>(MXFFile::PACK_SIZE);
    for (auto _ : state)
        for (unsigned int editUnit : file.choice())
            benchmark::DoNotOptimize(
                pread(descriptor, buffer.data(), size, start + static_cast<off_t>(editUnit * size)));
    close(descriptor);
    state.SetItemsProcessed(state.iterations() * SEEKS);
}
BENCHMARK(readBare)->Arg(5000)->Arg(50000)->Arg(400000)->Unit(benchmark::kMillisecond);

class OpenDiskFile
{
public:
    explicit OpenDiskFile(DiskFile const & file) :
        facts_({{1, PICTURE, {25, 1}, file.editUnits()}}),
        source_(Platform::stringToWstring(file.path().c_str()).c_str(), -1),
        reader_(source_, Tests::Schema().dictionary(), SEARCH_LIMIT),
        content(reader_, facts_.data, true, false, {})
    {
    }

private:
    ContainerFacts facts_;
    DataIO::File::FileDataSource source_;
    MXFIO::Reader2 reader_;

public:
    MXFIO::ContentStorageReader content;
};

void readNext(MXFIO::ContentStorageReader & content, Bytes & buffer)
{
    auto const packet = content.nextKLV(0);
    packet->value().readValue(buffer.data(), packet->length());
    benchmark::DoNotOptimize(buffer.data());
}

// Edit units in any order take at most 1.5 times as long as bare reads.
void readSeeking(benchmark::State & state)
{
    DiskFile const file(static_cast<unsigned int>(state.range(0)));
    OpenDiskFile open(file);
    Bytes buffer(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        for (unsigned int editUnit : file.choice())
        {
            open.content.seek(editUnit);
            readNext(open.content, buffer);
        }
    state.SetItemsProcessed(state.iterations() * SEEKS);
    state.SetLabel("at most 1.5 times readBare");
}
BENCHMARK(readSeeking)->Arg(5000)->Arg(50000)->Arg(400000)->Unit(benchmark::kMillisecond);

// The whole file in order, values passed over: by packets, not bytes.
void walk(benchmark::State & state)
{
    DiskFile const file(static_cast<unsigned int>(state.range(0)));
    OpenDiskFile open(file);
    for (auto _ : state)
    {
        open.content.seek(0);
        while (open.content.nextKLV(0))
            continue;
    }
    state.SetItemsProcessed(state.iterations() * file.editUnits());
}
BENCHMARK(walk)->Arg(500)->Arg(5000)->Arg(50000)->Unit(benchmark::kMillisecond);

}

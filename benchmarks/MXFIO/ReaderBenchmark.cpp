#include "MXFIO/Reader2.h"

#include "DataIO/File/FileDataSource.h"
#include "Metadata/PartitionMetadata.h"
#include "Platform/Text.h"
#include "Schema/Dictionaries.h"
#include "support/FileBytes.h"
#include "support/MXFFile.h"
#include "support/OpenFile.h"

#include <benchmark/benchmark.h>

#include <filesystem>

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

// A file on disk: header metadata of some hundred sets, essence in packets of
// 200 bytes, footer, and a random index pack perhaps.
class DiskFile
{
public:
    explicit DiskFile(unsigned int packets, bool withRIP = true) :
        path_(std::filesystem::temp_directory_path() / "vantry-reader-benchmark.mxf")
    {
        Bytes const metadata = chainMetadata(300);
        FilePart body;
        body.body = essence(packets, 180);
        body.bodySID = 1;
        writeFile(path_, MXFFile({{HEADER, CLOSED, metadata}, body, {FOOTER, CLOSED, metadata}}, withRIP).bytes());
    }

    DiskFile(DiskFile const &) = delete;
    DiskFile & operator=(DiskFile const &) = delete;
    ~DiskFile() { std::filesystem::remove(path_); }

    Templates::wstring name() const { return Platform::stringToWstring(path_.c_str()); }

private:
    std::filesystem::path path_;
};

// A file is open, with final metadata and its footer, in less than 1 ms,
// whether it has a random index pack or not.
void openFile(benchmark::State & state)
{
    DiskFile const file(10000, state.range(0) != 0);
    auto const dictionary = Schema::builtInDictionary();
    for (auto _ : state)
    {
        DataIO::File::FileDataSource source(file.name().c_str(), -1);
        MXFIO::Reader2 reader(source, dictionary, SEARCH_LIMIT);
        reader.loadRIP();
        benchmark::DoNotOptimize(reader.backwardFirstPartitionWithFinalMetadata()->metadata()->size());
        benchmark::DoNotOptimize(reader.footerPartition());
    }
    state.SetLabel("at most 1000000 ns");
}
BENCHMARK(openFile)->Arg(0)->Arg(1);

// A walk to the footer without random index pack takes time by the number of
// packets.
void walkPackets(benchmark::State & state)
{
    DiskFile const file(static_cast<unsigned int>(state.range(0)), false);
    auto const dictionary = Schema::builtInDictionary();
    for (auto _ : state)
    {
        DataIO::File::FileDataSource source(file.name().c_str(), -1);
        MXFIO::Reader reader(source, dictionary, SEARCH_LIMIT);
        benchmark::DoNotOptimize(offsetsForward(reader).size());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(walkPackets)->Arg(20000)->Arg(200000);

}

#include "DataIO/DataSink.h"
#include "GenericContainer/DefaultIndexTableGenerator.h"
#include "GenericContainer/IndexEntryBuilder.h"
#include "GenericContainer/IndexSegmentInfo.h"
#include "IndexTables/IndexEntry.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <iterator>

using namespace Vantry;
using namespace Vantry::GenericContainer;
using IndexTables::IndexEntry;

namespace {

// Counts what is written.
class Discarding : public DataIO::DataSink
{
public:
    void write(unsigned char const *, UInt64 howMuch) override { bytes_ += howMuch; }
    UInt64 absoluteOffset() const override { return bytes_; }

private:
    UInt64 bytes_ = 0;
};

// A content package: system item, a picture and four sounds.
IndexSegmentInfo contentPackage()
{
    IndexEntryData const system = {97, 97, 0, false, false, false, false, true};
    IndexEntryData const picture = {0, 0, 0, true, false, false, false, false};
    IndexEntryData const sound = {5780, 5760, 0, false, false, false, false, true};
    return {25, 20, 0, IndexSegmentInfo::FRAME_WRAPPING, false, {system, picture, sound, sound, sound, sound}};
}

struct Picture
{
    unsigned char flags;
    signed char temporalReference;
};

unsigned char const I = IndexEntry::SEQUENCE_HEADER | IndexEntry::RANDOM_ACCESS;
unsigned char const P = IndexEntry::FORWARD_PREDICTION;
unsigned char const B = IndexEntry::FORWARD_PREDICTION | IndexEntry::BACKWARD_PREDICTION;

Picture const GROUP[] = {{I, 0}, {P, 3}, {B, 1}, {B, 2}, {P, 6}, {B, 4}, {B, 5}};

void writeEditUnit(IndexEntryBuilder & builder, DefaultIndexTableGenerator & generator, UInt64 editUnit)
{
    UInt64 const size = 400000;
    Picture const & picture = GROUP[editUnit % std::size(GROUP)];
    builder.prepareNewEntry(editUnit * size);
    builder.processAnalyzerIndexEntrySliceOffset(false, 0, 97);
    builder.processAnalyzerIndexEntrySliceOffset(true, 0, size - 4 * 5780);
    builder.processAnalyzerIndexEntry(editUnit, true, picture.flags, picture.temporalReference);
    for (unsigned int sounds = 4; sounds > 0; --sounds)
        builder.processAnalyzerIndexEntrySliceOffset(false, 0, static_cast<UInt32>(size - 5780 * (sounds - 1)));
    builder.appendIndexEntry();
    generator.currentContentInfo(editUnit + 1, (editUnit + 1) * size);
}

// The index of a whole container, kept to its end. Time and memory follow the
// number of edit units.
void indexOfEditUnits(benchmark::State & state)
{
    UInt64 const editUnits = static_cast<UInt64>(state.range(0));
    std::size_t most = 0;
    for (auto _ : state)
    {
        std::size_t const before = mallinfo2().uordblks;
        DefaultIndexTableGenerator generator;
        generator.setupIndexSegments(contentPackage());
        generator.indexStrategies(MXFIO::INDEX_NONE, MXFIO::INDEX_REPEATED, MXFIO::INDEX_AUTOMATIC);
        IndexEntryBuilder builder;
        builder.indexTableGenerator(&generator);
        for (UInt64 i = 0; i < editUnits; ++i)
            writeEditUnit(builder, generator, i);

        Discarding sink;
        generator.updateIndex();
        generator.writeIndexSegments(true, sink);
        most = mallinfo2().uordblks - before;
    }
    state.counters["bytes/edit unit"] = static_cast<double>(most) / static_cast<double>(editUnits);
    if (editUnits == 1000000)
        state.SetLabel("at most 1000000000 ns");
}
BENCHMARK(indexOfEditUnits)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}

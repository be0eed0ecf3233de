#include "DataIO/Memory/MemoryDataSource.h"
#include "IndexTables/IndexEntryArray.h"
#include "IndexTables/IndexTable.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "support/BytesSink.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <random>

using namespace Vantry;
using namespace Vantry::IndexTables;
using Tests::Bytes;

namespace {

// The edit units of a film of more than two hours.
unsigned int const EDIT_UNITS = 200000;
unsigned int const EDIT_UNITS_IN_GROUP = 12;

// As many as fit into the 16 bits of an array's length, with a slice offset.
unsigned int const EDIT_UNITS_IN_SEGMENT = 4000;

IndexEntry entryOf(unsigned int editUnit)
{
    unsigned int const place = editUnit % EDIT_UNITS_IN_GROUP;
    IndexEntry entry(0, static_cast<signed char>(-static_cast<int>(place)), place == 0, place == 0, place != 0, false,
                     UInt64(editUnit) * 50000);
    entry.addSliceOffset(0, 40000);
    return entry;
}

// A list of all entries, as one array, which is more than a segment can hold.
Bytes const & wholeArray()
{
    static Bytes const bytes = []
    {
        IndexEntryArray array(1, 0);
        for (unsigned int i = 0; i < EDIT_UNITS; ++i)
            array.append(entryOf(i));
        return Tests::serialized(array);
    }();
    return bytes;
}

// All entries in segments, one behind the other.
Bytes const & segments()
{
    static Bytes const bytes = []
    {
        Tests::BytesSink sink;
        for (unsigned int start = 0; start < EDIT_UNITS; start += EDIT_UNITS_IN_SEGMENT)
        {
            IndexTableSegment segment(4);
            segment.indexStartPosition(start);
            segment.indexDuration(EDIT_UNITS_IN_SEGMENT);
            segment.bodySID(1);
            segment.sliceCount(1);
            for (unsigned int i = 0; i < EDIT_UNITS_IN_SEGMENT; ++i)
                segment.addIndexEntry(i, entryOf(start + i));
            segment.serialize(sink);
        }
        return sink.bytes();
    }();
    return bytes;
}

template <class Segment>
std::unique_ptr<IndexTable> tableOf(Bytes const & bytes)
{
    auto table = std::make_unique<IndexTable>(2, 1);
    DataIO::Memory::MemoryDataSource source(bytes.data(), bytes.size());
    KLV::Reader reader(source);
    for (UInt64 skipped = 0; !source.endOfStream();)
    {
        auto const packet = reader.nextKLV(skipped, 0);
        table->add(Templates::auto_ptr<IndexTableSegment>(new Segment(*packet, nullptr)), false);
    }
    return table;
}

template <class Number>
Number numberAt(unsigned char const * bytes)
{
    Number number = 0;
    for (unsigned int i = 0; i < sizeof(Number); ++i)
        number = static_cast<Number>(number << 8 | bytes[i]);
    return number;
}

// What any reader has to do: copy the bytes and decode them into records.
void decodeBare(benchmark::State & state)
{
    struct Record
    {
        UInt64 streamOffset;
        UInt32 sliceOffset;
        unsigned char flags[3];
    };
    Bytes const & bytes = wholeArray();
    while (state.KeepRunning())
    {
        std::vector<unsigned char> copy(bytes.begin(), bytes.end());
        std::vector<Record> records;
        records.reserve(EDIT_UNITS);
        for (unsigned char const * at = copy.data() + 8; at != copy.data() + copy.size(); at += 15)
            records.push_back({numberAt<UInt64>(at + 3), numberAt<UInt32>(at + 11), {at[0], at[1], at[2]}});
        benchmark::DoNotOptimize(records.data());
    }
    state.SetItemsProcessed(state.iterations() * EDIT_UNITS);
}

// The claims of an array as long as this are not believed before its bytes are
// there, so memory for it grows in steps.
void readArray(benchmark::State & state)
{
    Bytes const & bytes = wholeArray();
    while (state.KeepRunning())
    {
        DataIO::Memory::MemoryDataSource source(bytes.data(), bytes.size());
        KLV::Value value(source, bytes.size());
        IndexEntryArray const array(value, 1, 0);
        benchmark::DoNotOptimize(array.at(EDIT_UNITS - 1).streamOffset());
    }
    state.SetItemsProcessed(state.iterations() * EDIT_UNITS);
    state.SetLabel("at most 30 times decodeBare");
}

template <class Segment>
void readSegments(benchmark::State & state)
{
    while (state.KeepRunning())
        benchmark::DoNotOptimize(tableOf<Segment>(segments()));
    state.SetItemsProcessed(state.iterations() * EDIT_UNITS);
}

void readPlainSegments(benchmark::State & state)
{
    readSegments<IndexTableSegment>(state);
    state.SetLabel("at most 5 times decodeBare");
}

// The groups of pictures are found while the entries are read.
void readSegmentsWithGroups(benchmark::State & state)
{
    readSegments<IndexTableSegmentWithGOPInfo>(state);
    state.SetLabel("at most 12 times decodeBare");
}

void writeArray(benchmark::State & state)
{
    Bytes const & bytes = wholeArray();
    DataIO::Memory::MemoryDataSource source(bytes.data(), bytes.size());
    KLV::Value value(source, bytes.size());
    IndexEntryArray const array(value, 1, 0);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(Tests::serialized(array));
    state.SetItemsProcessed(state.iterations() * EDIT_UNITS);
    state.SetLabel("at most 8 times decodeBare");
}

// A look-up takes no longer in a gap among many segments than elsewhere,
// though one of them reaches far.
void findSegment(benchmark::State & state)
{
    Int64 const count = state.range(0);
    IndexTable table(2, 1);
    for (Int64 i = 0; i < count; ++i)
    {
        Templates::auto_ptr<IndexTableSegment> segment(new IndexTableSegment(4));
        segment->bodySID(1);
        segment->indexStartPosition(10 * i);
        segment->indexDuration(i == 0 ? 10 * count : 5);
        table.add(segment, false);
    }

    std::mt19937_64 random(1);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(table.find(static_cast<Int64>(random() % static_cast<UInt64>(10 * count))));
    state.SetLabel("at most 30 times findSegment/10");
}

BENCHMARK(decodeBare)->Unit(benchmark::kMillisecond);
BENCHMARK(readArray)->Unit(benchmark::kMillisecond);
BENCHMARK(readPlainSegments)->Unit(benchmark::kMillisecond);
BENCHMARK(readSegmentsWithGroups)->Unit(benchmark::kMillisecond);
BENCHMARK(writeArray)->Unit(benchmark::kMillisecond);
BENCHMARK(findSegment)->Arg(10)->Arg(1000)->Arg(100000);

}

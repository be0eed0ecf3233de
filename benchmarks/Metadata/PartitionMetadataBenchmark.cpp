#include "Metadata/PartitionMetadata.h"

#include "DataIO/Memory/MemoryDataSink.h"
#include "DataIO/Memory/MemoryDataSource.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Packs/PrimerPack.h"
#include "Schema/Dictionaries.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UUID.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Vantry;
using Metadata::PartitionMetadata;

unsigned int const TRACKS = 16;
// A package, and for each track a sequence and a clip.
unsigned int const SETS_IN_PACKAGE = 1 + 3 * TRACKS;

std::unique_ptr<PartitionMetadata> makePartition(Packs::PrimerPack const & primer)
{
    static Templates::SharedPtr<MetaMetadata::Dictionary> const dictionary = Schema::builtInDictionary();
    return std::make_unique<PartitionMetadata>(
        Templates::auto_ptr<Metadata::PartitionDictionary>(new Metadata::PartitionDictionary(
            dictionary, Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack(primer)))));
}

void addPackage(PartitionMetadata & metadata, Metadata::Structural::ContentStorage & storage)
{
    using namespace Metadata::Structural;
    auto & package =
        dynamic_cast<SourcePackage &>(*metadata.createMetadataSet(StructuralMetadataKeys::sourcePackage()));
    storage.appendPackage(&package);
    for (unsigned int i = 0; i < TRACKS; ++i)
    {
        TimelineTrack * const track =
            createTimelineTrack(metadata, package, DataDefinitionULs::picture(), i + 1, 0, Types::Position(Int64(0)),
                                Types::Rational(25, 1), Types::Length(Int64(100)));
        addSourceClip(metadata, track->sequence(), DataDefinitionULs::picture(), Types::Position(Int64(0)),
                      Types::Length(Int64(100)));
    }
}

// Packages with tracks, `sets` sets or a few less, as a file has them.
struct Written
{
    explicit Written(unsigned int sets) : sink(UInt64(1) << 20)
    {
        using namespace Metadata::Structural;
        auto const metadata = makePartition(Packs::PrimerPack());
        auto & preface = dynamic_cast<Preface &>(*metadata->createMetadataSet(StructuralMetadataKeys::preface()));
        auto & storage =
            dynamic_cast<ContentStorage &>(*metadata->createMetadataSet(StructuralMetadataKeys::contentStorage()));
        preface.contentStorage(&storage);
        for (unsigned int i = 0; i < sets / SETS_IN_PACKAGE; ++i)
            addPackage(*metadata, storage);

        metadata->generateLocalTags();
        primer.reset(new Packs::PrimerPack(metadata->partitionDictionary().primer()));
        metadata->serialize(sink, true, PartitionMetadata::ForwardDepthFirst, false);
        count = metadata->size();
    }

    std::unique_ptr<PartitionMetadata> load() const
    {
        auto metadata = makePartition(*primer);
        DataIO::Memory::MemoryDataSource source(sink.rawBuffer(), sink.serializedSize());
        KLV::Reader reader(source);
        for (unsigned int i = 0; i < count; ++i)
        {
            UInt64 skipped = 0;
            metadata->load(*reader.nextKLV(skipped, 0));
        }
        return metadata;
    }

    DataIO::Memory::MemoryDataSink sink;
    std::unique_ptr<Packs::PrimerPack> primer;
    unsigned int count = 0;
};

// Time is that of one set, and much the same however many there are.
void setLabel(benchmark::State & state, std::string const & name)
{
    state.SetLabel(state.range(0) == 1000 ? "at most 10000 ns"
                                          : "at most 1.3 times " + name + '/' + std::to_string(state.range(0) / 10));
}

void loadPartition(benchmark::State & state)
{
    Written const written(static_cast<unsigned int>(state.range(0)));
    while (state.KeepRunningBatch(written.count))
    {
        auto metadata = written.load();
        state.PauseTiming();
        metadata.reset();
        state.ResumeTiming();
    }
    setLabel(state, "loadPartition");
}
BENCHMARK(loadPartition)->Arg(1000)->Arg(10000)->Arg(100000);

// Tags and sizes are computed each time, as after a change.
void writePartition(benchmark::State & state)
{
    Written const written(static_cast<unsigned int>(state.range(0)));
    auto const metadata = written.load();
    Metadata::Structural::Preface & preface = Metadata::Structural::findPreface(*metadata);
    Types::UInt32 const version(1);
    while (state.KeepRunningBatch(written.count))
    {
        preface.objectModelVersion(&version);
        DataIO::Memory::MemoryDataSink sink(metadata->serializedSize(true, true));
        metadata->serialize(sink, true, PartitionMetadata::ForwardDepthFirst, true);
        benchmark::DoNotOptimize(sink.rawBuffer());
    }
    setLabel(state, "writePartition");
}
BENCHMARK(writePartition)->Arg(1000)->Arg(10000)->Arg(100000);

// One look into a table; beyond some ten thousand sets it is out of the cache.
void findByInstanceUID(benchmark::State & state)
{
    Written const written(static_cast<unsigned int>(state.range(0)));
    auto const metadata = written.load();
    std::vector<Types::UUID> identifiers;
    for (auto const & entry : *metadata)
        identifiers.push_back(*entry.second->instanceUID());

    std::size_t next = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(metadata->find(Metadata::MetadataULs::instanceUID(), identifiers[next]));
        next = (next + 7919) % identifiers.size();
    }
    state.SetLabel("at most 1000 ns");
}
BENCHMARK(findByInstanceUID)->Arg(1000)->Arg(10000)->Arg(100000);

}

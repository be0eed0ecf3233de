#include "DataIO/Memory/MemoryDataSink.h"
#include "DataIO/Memory/MemoryDataSource.h"
#include "KLV/Packet.h"
#include "MetaMetadata/Dictionary.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MetaSimpleElement.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/PartitionDictionary.h"
#include "Packs/PrimerPack.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace Vantry;

unsigned char const ATTRIBUTES = 25;
unsigned char const IN_FILE = 12;

unsigned char const KEY[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x53, 0x01, 0x01, 0x0D, 1, 1, 1, 1, 1, 0x7E, 0};

Types::UniversalLabel label(unsigned char number)
{
    unsigned char const bytes[] = {0x06, 0x0E, 0x2B, 0x34, 1, 1, 1, 1, 0x7F, 0, 0, 0, 0, 0, 0, number};
    return Types::UniversalLabel(bytes);
}

Types::LocalTag tag(unsigned char number)
{
    unsigned char const bytes[] = {0x40, number};
    return Types::LocalTag(bytes);
}

// A dictionary with one set, and a partition whose primer has its tags.
struct Schema
{
    Schema() : dictionary(new MetaMetadata::Dictionary), set(KLV::Key(KEY))
    {
        Templates::auto_ptr<Packs::PrimerPack> primer(new Packs::PrimerPack);
        for (unsigned char i = 0; i < ATTRIBUTES; ++i)
        {
            dictionary->add(label(i), Templates::auto_ptr<MetaMetadata::MetaElement>(
                                          new MetaMetadata::MetaSimpleElement(label(i), Types::Identifiers::UInt64)));
            dictionary->add(tag(i), label(i));
            primer->add(tag(i), label(i));
            set.addMetaAttribute(Templates::SharedPtr<MetaMetadata::MetaAttribute>(new MetaMetadata::MetaAttribute(
                *dictionary->findMetaElement(label(i)), MetaMetadata::AttributeRequiredStatus::Opt,
                Templates::auto_ptr<Types::BaseType const>(), nullptr)));
        }
        partition.reset(new Metadata::PartitionDictionary(dictionary, primer));
    }

    Templates::SharedPtr<MetaMetadata::Dictionary> dictionary;
    MetaMetadata::MetaMetadataSet set;
    Templates::auto_ptr<Metadata::PartitionDictionary> partition;
};

std::vector<unsigned char> triplets(unsigned char tagPage, unsigned count)
{
    std::vector<unsigned char> bytes;
    for (unsigned i = 0; i < count; ++i)
        for (unsigned byte : {unsigned(tagPage), i % ATTRIBUTES, 0u, 8u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u})
            bytes.push_back(static_cast<unsigned char>(byte));
    return bytes;
}

void load(Metadata::MetadataSet & set, Schema const & schema, std::vector<unsigned char> const & bytes)
{
    DataIO::Memory::MemoryDataSource source(bytes.data(), bytes.size());
    KLV::Packet packet(KLV::Key(KEY), 4, bytes.size(), source, 0);
    set.load(packet, *schema.partition, true);
}

// A set of usual size is made, loaded and destroyed.
void loadSet(benchmark::State & state)
{
    Schema const schema;
    std::vector<unsigned char> const bytes = triplets(0x40, IN_FILE);
    for (auto _ : state)
    {
        Metadata::MetadataSet set(KLV::Key(KEY), &schema.set, nullptr);
        load(set, schema, bytes);
        benchmark::DoNotOptimize(&set);
    }
    state.SetLabel("at most 10000 ns");
}
BENCHMARK(loadSet);

// Tags that mean nothing cost about as much as others: none is thrown about.
void loadUnknownTags(benchmark::State & state)
{
    Schema const schema;
    unsigned const TAGS = 1000;
    std::vector<unsigned char> const bytes = triplets(0xF0, TAGS);
    while (state.KeepRunningBatch(TAGS))
    {
        Metadata::MetadataSet set(KLV::Key(KEY), &schema.set, nullptr);
        load(set, schema, bytes);
        benchmark::DoNotOptimize(set.invalidSize());
    }
    state.SetLabel("at most 1000 ns");
}
BENCHMARK(loadUnknownTags);

void writeSet(benchmark::State & state)
{
    Schema const schema;
    Metadata::MetadataSet set(KLV::Key(KEY), &schema.set, nullptr);
    load(set, schema, triplets(0x40, IN_FILE));
    for (auto _ : state)
    {
        DataIO::Memory::MemoryDataSink sink(set.serializedSize(true));
        set.serialize(sink, *schema.partition, true);
        benchmark::DoNotOptimize(sink.rawBuffer());
    }
    state.SetLabel("at most 10000 ns");
}
BENCHMARK(writeSet);

}

#include "MXFIO/Creator.h"

#include "MXFIO/KLVSource.h"
#include "support/BytesFile.h"
#include "support/Failure.h"
#include "support/MemorySources.h"
#include "support/OpenFile.h"
#include "support/WrittenFile.h"

#include <sstream>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Packs::PartitionPack;
using Templates::auto_ptr;
using Faults = std::vector<std::string>;

using Seconds = Templates::Rational<Int64>;

// "units=4 rip=0": seconds are fifths.
void set(Creator & creator, std::string const & settings)
{
    static std::map<std::string, void (PullCreator::*)(bool)> const FLAGS = {
        {"rip", &Creator::writeRIP},
        {"run-in-aligned", &Creator::runInKagAligned},
        {"footer-metadata", &Creator::footerHasMetadata},
        {"header-essence", &Creator::headerPartitionHasEssence},
        {"header-index", &Creator::useFirstContainerForIndexTableGenerationOnHeader},
        {"index-apart", &Creator::createSeparatePartitionsForIndex},
    };
    static std::map<std::string, void (PullCreator::*)(unsigned int)> const NUMBERS = {
        {"units", &Creator::masterEditUnitsPerPartition},
        {"metadata", &Creator::metadataRepetitionPeriod},
        {"grid", &Creator::nonEssenceKAGSize},
        {"footer-grid", &Creator::footerKagAlignSize},
    };
    static std::map<std::string, void (PullCreator::*)(Seconds const &)> const SECONDS = {
        {"seconds", &Creator::masterSecondsPerPartition},
        {"turn", &Creator::partitionMultiplexPeriod},
    };
    std::istringstream words(settings);
    for (std::string word; words >> word;)
    {
        std::string const name = word.substr(0, word.find('='));
        unsigned int const value = static_cast<unsigned int>(std::stoi(word.substr(name.size() + 1)));
        if (FLAGS.count(name) != 0)
            (creator.*FLAGS.at(name))(value != 0);
        else if (NUMBERS.count(name) != 0)
            (creator.*NUMBERS.at(name))(value);
        else if (name == "order")
            creator.serializationOrder(static_cast<PullCreator::SerializationOrder>(value));
        else
            (creator.*SECONDS.at(name))(Seconds(value, 5));
    }
}

// What a file is made of and how.
struct FilePlan
{
    std::vector<EssencePlan> sources = {EssencePlan()};
    IndexTableGeneration duringEssence = INDEX_NONE;
    IndexTableGeneration afterEssence = INDEX_FOLLOWING;
    UInt64 spareSpace = 0;
    UInt64 runInSize = 0;
    unsigned int goodWrites = ~0u;
    std::string settings = {};
};

struct FileOf
{
    explicit FileOf(Bytes const & bytes) : source(bytes), file(source) {}
    WrittenFile * operator->() { return &file; }

    BytesSource source;
    WrittenFile file;
};

// A creator at work, with all that it needs.
class Making
{
public:
    explicit Making(FilePlan const & plan = FilePlan()) :
        file(plan.runInSize, plan.goodWrites), creator(new Creator(header.shared(), file, plan.spareSpace, 0))
    {
        set(*creator, plan.settings);
        for (EssencePlan const & source : plan.sources)
            add(std::make_shared<EssencePlan>(source), plan);
    }

    Bytes const & write()
    {
        Tests::write(*creator);
        return file.bytes;
    }

    Bytes const & finish()
    {
        Tests::finish(*creator, file);
        return file.bytes;
    }

    EssenceMetadata header;
    BytesFile file;
    std::map<unsigned int, EssencePlanPtr> sources;
    std::unique_ptr<Creator> creator;

private:
    void add(EssencePlanPtr const & source, FilePlan const & plan)
    {
        unsigned int const sid =
            source->isStream ? creator->addGenericStream(auto_ptr<GenericStream::Source>(new MemoryStream(source, 9)),
                                                         source->kagSize)
                             : creator->addEssenceContainer(header.source(source), plan.duringEssence,
                                                            plan.afterEssence, false, INDEX_AUTOMATIC);
        sources[sid] = source;
    }
};

// "H1x4mi2": a header partition with four units, of 100 bytes, of stream 1,
// with metadata and with index 2.
std::string layoutOf(WrittenFile const & file)
{
    std::string layout;
    for (WrittenFile::Part const & part : file.parts())
    {
        layout += layout.empty() ? "" : " ";
        layout += "HBF"[part.pack.partitionKind() - HEADER];
        if (part.pack.bodySID() != 0)
            layout += std::to_string(part.pack.bodySID()) + "x" + std::to_string(part.essenceBytes / 100);
        layout += part.headerBytes != 0 ? "m" : "";
        layout += part.indexBytes != 0 ? "i" + std::to_string(part.pack.indexSID()) : "";
    }
    return layout + (file.hasRIP() ? " R" : "");
}

// "10 6v 4c 5s": ten units, six of variable size, a clip in four pieces, a
// generic stream of five units.
std::vector<EssencePlan> sourcesOf(std::string const & text)
{
    std::vector<EssencePlan> plans;
    std::istringstream words(text);
    for (std::string word; words >> word;)
    {
        EssencePlan plan;
        plan.units = static_cast<unsigned int>(std::stoi(word));
        plan.growing = word.back() == 'v';
        plan.isClip = word.back() == 'c';
        plan.isStream = word.back() == 's';
        plans.push_back(plan);
    }
    return plans;
}

TEST(Creator, OrdersThePartitions)
{
    struct Case
    {
        char const * sources;
        char const * settings;
        IndexTableGeneration duringEssence;
        IndexTableGeneration afterEssence;
        char const * layout;
    };
    Case const CASES[] = {
        {"", "", INDEX_NONE, INDEX_NONE, "Hm Fm R"},
        {"10", "rip=0 footer-metadata=0", INDEX_NONE, INDEX_NONE, "H1x10m F"},
        {"0", "", INDEX_NONE, INDEX_FOLLOWING, "H1x0m Bi2 Fm R"},
        {"10v", "", INDEX_NONE, INDEX_FOLLOWING, "H1x10m Bi2 Fm R"},
        {"10", "", INDEX_FOLLOWING, INDEX_NONE, "H1x10mi2 Fm R"},
        {"10", "header-essence=0", INDEX_FOLLOWING, INDEX_NONE, "Hm B1x10i2 Fm R"},
        {"10", "header-essence=0 header-index=1", INDEX_FOLLOWING, INDEX_NONE, "Hmi2 B1x10 Fm R"},
        {"10", "units=4", INDEX_NONE, INDEX_NONE, "H1x4m B1x4 B1x2 Fm R"},
        {"10c", "units=4", INDEX_NONE, INDEX_NONE, "H1x10m Fm R"},
        {"10", "seconds=1", INDEX_NONE, INDEX_NONE, "H1x5m B1x5 Fm R"},
        {"10v", "units=4", INDEX_FOLLOWING, INDEX_FOLLOWING, "H1x4m B1x4i2 B1x2i2 Bi2 Fm R"},
        {"10v", "units=4 index-apart=1", INDEX_FOLLOWING, INDEX_FOLLOWING, "H1x4m Bi2 B1x4 Bi2 B1x2 Bi2 Fm R"},
        {"10", "units=4 metadata=1", INDEX_NONE, INDEX_NONE, "H1x4m B1x4m B1x2m Fm R"},
        {"10", "units=2 metadata=3", INDEX_NONE, INDEX_NONE, "H1x2m B1x2 B1x2 B1x2m B1x2 Fm R"},
        {"10 6", "", INDEX_NONE, INDEX_NONE, "H1x10m B3x6 Fm R"},
        {"10 6", "header-essence=0", INDEX_NONE, INDEX_NONE, "Hm B3x6 B1x10 Fm R"},
        {"10 6", "turn=1", INDEX_NONE, INDEX_NONE, "H1x5m B3x5 B1x5 B3x1 Fm R"},
        {"10 6", "units=4 turn=1", INDEX_NONE, INDEX_NONE, "H1x4m B1x1 B3x4 B3x1 B1x4 B1x1 B3x1 Fm R"},
        {"20 20", "seconds=1 turn=2", INDEX_NONE, INDEX_NONE, "H1x5m B1x5 B3x5 B3x5 B1x5 B3x5 B1x5 B3x5 Fm R"},
        {"10", "turn=1", INDEX_NONE, INDEX_NONE, "H1x5m B1x5 Fm R"},
        {"10c 6", "turn=1", INDEX_NONE, INDEX_NONE, "H1x10m B3x5 B3x1 Fm R"},
        {"10v 6v 0v", "", INDEX_NONE, INDEX_REPEATED, "H1x10m B3x6 B5x0 Bi4 Bi2 Fm R"},
        {"10v 6", "", INDEX_FOLLOWING, INDEX_REPEATED_IF_VARIABLE, "H1x10m B3x6i4 Bi4 Bi2 Fm R"},
        {"10 6s", "metadata=1", INDEX_NONE, INDEX_NONE, "H1x10m B3x6 Fm R"},
        {"6s 10", "metadata=1", INDEX_NONE, INDEX_NONE, "Hm B1x6 B3x10m Fm R"},
    };
    for (Case const & c : CASES)
    {
        SCOPED_TRACE(std::string(c.sources) + " " + c.settings);
        FilePlan plan{sourcesOf(c.sources), c.duringEssence, c.afterEssence};
        plan.settings = c.settings;
        EXPECT_EQ(layoutOf(FileOf(Making(plan).write()).file), c.layout);
    }
}

// Of many settings one for each number, so that all meet each other.
FilePlan filePlan(unsigned int number)
{
    std::minstd_rand numbers(number + 1);
    auto const choice = [&](unsigned int howMany)
    {
        return static_cast<unsigned int>(numbers() >> 8) % howMany;
    };

    FilePlan plan;
    plan.sources.resize(choice(4));
    for (EssencePlan & source : plan.sources)
    {
        source.units = 1 + choice(23);
        source.growing = choice(2) != 0;
        source.kagSize = choice(2) * 256;
        source.isClip = choice(4) == 0;
        source.isStream = choice(4) == 0;
        source.patched = choice(2) != 0;
        source.emptyAnswers = choice(2);
    }
    plan.duringEssence = static_cast<IndexTableGeneration>(choice(4));
    plan.afterEssence = static_cast<IndexTableGeneration>(1 + choice(3));
    plan.spareSpace = choice(2) * 5000;
    plan.runInSize = choice(2) * 100;
    for (char const * name : {"run-in-aligned", "footer-metadata", "header-essence", "header-index", "index-apart"})
        plan.settings += std::string(name) + "=" + std::to_string(choice(2)) + " ";
    for (char const * name : {"metadata", "seconds", "turn", "order"})
        plan.settings += std::string(name) + "=" + std::to_string(choice(3)) + " ";
    plan.settings += "units=" + std::to_string(choice(2) * 4) + " grid=" + std::to_string(choice(2) * 512);
    plan.settings += " footer-grid=64";
    return plan;
}

// The bytes of each stream, joined over its partitions.
std::map<unsigned int, Bytes> streamsOf(Bytes const & bytes, WrittenFile const & file)
{
    std::map<unsigned int, Bytes> streams;
    for (WrittenFile::Part const & part : file.parts())
    {
        auto const start = bytes.begin() + static_cast<std::ptrdiff_t>(file.runInSize() + part.offset + part.packBytes +
                                                                       part.headerBytes + part.indexBytes);
        if (part.pack.bodySID() != 0)
            streams[part.pack.bodySID()] += Bytes(start, start + static_cast<std::ptrdiff_t>(part.essenceBytes));
    }
    return streams;
}

// How many edit units the segments of each index have, those told twice once.
std::map<unsigned int, std::size_t> indexedUnits(WrittenFile const & file)
{
    std::map<unsigned int, std::set<Int64>> units;
    for (WrittenFile::Part const & part : file.parts())
        for (auto const & segment : part.segments)
            for (unsigned int i = 0; i < segment->indexEntryCount(); ++i)
                units[part.pack.indexSID()].insert(segment->indexStartPosition().value() + i);

    std::map<unsigned int, std::size_t> counts;
    for (auto const & entry : units)
        counts[entry.first] = entry.second.size();
    return counts;
}

TEST(Creator, IsExactWithAnySettings)
{
    for (unsigned int number = 0; number < 600 && !testing::Test::HasFailure(); ++number)
    {
        SCOPED_TRACE(number);
        FilePlan const plan = filePlan(number);
        Making making(plan);
        EXPECT_EQ(FileOf(making.write())->faults(false), Faults());

        FileOf written(making.finish());
        EXPECT_EQ(written->faults(), Faults());
        EXPECT_EQ(written->runInSize(), plan.runInSize);
        EXPECT_EQ(written->parts().back().pack.kagSize(), 64u);

        auto streams = streamsOf(making.file.bytes, written.file);
        auto units = indexedUnits(written.file);
        EXPECT_EQ(streams.size(), making.sources.size());
        making.creator.reset();
        for (auto const & entry : making.sources)
        {
            EssencePlan & source = *entry.second;
            if (source.patched)
                source.given[20] = 0xEE;
            EXPECT_EQ(streams[entry.first], source.given);
            EXPECT_EQ(source.finalized, !source.isStream);
            EXPECT_EQ(source.alive, 0);
            EXPECT_EQ(units[entry.first + 1], source.growing && !source.isStream ? source.units : 0);
        }
    }
}

// A lie about any place or size shows: what finds none above could.
TEST(Creator, WrittenFileSeesWhatIsWrong)
{
    FilePlan plan{sourcesOf("10v"), INDEX_FOLLOWING, INDEX_FOLLOWING};
    plan.sources.front().kagSize = 256;
    plan.settings = "units=4";
    Making making(plan);
    making.write();
    Bytes const bytes = making.finish();

    // Last bytes of the fields of a pack, and of the random index pack.
    UInt64 const FIELDS[] = {13, 21, 23, 27, 35, 43, 51, 59, 67, 71, 79, 83};
    UInt64 const KAG_SIZE = 27;
    std::vector<UInt64> places = {bytes.size() - 1, bytes.size() - 5, bytes.size() - 13};
    FileOf const written(bytes);
    for (WrittenFile::Part const & part : written.file.parts())
        for (UInt64 const field : FIELDS)
            if (field != KAG_SIZE || part.pack.kagSize() > 1)
                places.push_back(part.offset + field);
    EXPECT_GT(places.size(), 50u);
    for (UInt64 const place : places)
    {
        Bytes lying = bytes;
        lying[place] ^= 1;
        EXPECT_NE(FileOf(lying)->faults(), Faults()) << place;
    }
}

TEST(Creator, ReadsExternalEssenceAndDropsIt)
{
    Making making(FilePlan{{}});
    auto const plan = std::make_shared<EssencePlan>();
    EXPECT_EQ(
        making.creator->addEssenceContainer(making.header.source(plan), INDEX_NONE, INDEX_NONE, true, INDEX_AUTOMATIC),
        0u);
    EXPECT_EQ(layoutOf(FileOf(making.write()).file), "Hm Fm R");
    EXPECT_EQ(plan->given.size(), 1000u);
    EXPECT_TRUE(plan->finalized);
    EXPECT_EQ(making.header.storage.essenceContainerDataCount(), 0u);
}

struct OneSID : AbstractSIDGenerator
{
    OneSID(unsigned int body, unsigned int index) : bodySID_(body), indexSID_(index) {}
    unsigned int bodySID(unsigned int) override { return bodySID_; }
    unsigned int indexSID(unsigned int) override { return indexSID_; }

    unsigned int bodySID_;
    unsigned int indexSID_;
};

TEST(Creator, RefusesStreamNumbers)
{
    auto const plan = std::make_shared<EssencePlan>();
    Making making(FilePlan{{}});
    auto const add = [&](unsigned int bodySID, unsigned int indexSID)
    {
        making.creator->sidGenerator(auto_ptr<AbstractSIDGenerator>(new OneSID(bodySID, indexSID)));
        return making.creator->addEssenceContainer(making.header.source(plan), INDEX_NONE, INDEX_NONE, false,
                                                   INDEX_AUTOMATIC);
    };
    EXPECT_FAILURE(InvalidValue, "sidGenerator.get () != 0: SID Generator must be valid object!",
                   making.creator->sidGenerator(auto_ptr<AbstractSIDGenerator>()));
    EXPECT_FAILURE(InvalidValue, "currentBodySID > 0: BodySID value must be greater than 0!", add(0, 1));
    EXPECT_FAILURE(InvalidValue, "currentIndexSID > 0: IndexSID value must be greater than 0!", add(1, 0));
    EXPECT_EQ(add(7, 8), 7u);
    EXPECT_FAILURE(InvalidValue, "handlers_.find (bodySID) == handlers_.end (): BodySID value is used already!",
                   add(7, 9));
    EXPECT_EQ(plan->alive, 1);
    EXPECT_EQ(making.creator->creatorSources().count(7), 1u);
}

// A pull that fails counts for nothing; the next one goes on.
TEST(Creator, GoesOnBehindAFailureOfASource)
{
    for (unsigned int const failsAt : {5u, 10u})
    {
        FilePlan plan;
        plan.sources.front().failsAt = failsAt;
        Making making(plan);
        EXPECT_FAILURE(InvalidFormat, "a bad unit", making.write());
        EXPECT_EQ(making.creator->status(), PullCreator::PullBody);
        FileOf written(making.write());
        EXPECT_EQ(written->faults(false), Faults());
        EXPECT_EQ(layoutOf(written.file), "H1x10m Bi2 Fm R");
    }
}

TEST(Creator, LeavesNothingBehindWhenTheSinkFails)
{
    FilePlan plan{sourcesOf("10v 6s"), INDEX_FOLLOWING, INDEX_FOLLOWING};
    plan.settings = "units=4 turn=1";
    bool failed = true;
    for (plan.goodWrites = 0; failed; ++plan.goodWrites)
    {
        Making making(plan);
        try
        {
            making.write();
            failed = false;
        }
        catch (Exceptions::IOError const &)
        {
        }
        making.creator.reset();
        for (auto const & entry : making.sources)
            EXPECT_EQ(entry.second->alive, 0) << plan.goodWrites;
        EXPECT_EQ(FirstBytePatch::blocks().alive(), 0) << plan.goodWrites;
    }
    EXPECT_GT(plan.goodWrites, 20u);
}

TEST(Creator, EveryPrefixOpens)
{
    FilePlan plan{sourcesOf("10v 6s"), INDEX_FOLLOWING, INDEX_FOLLOWING};
    plan.settings = "units=4 turn=1";
    Making making(plan);
    Bytes const bytes = making.write();
    FileOf const written(bytes);
    std::vector<WrittenFile::Part> const & parts = written.file.parts();
    ASSERT_GT(parts.size(), 3u);

    for (UInt64 size = parts[1].offset + parts[1].packBytes; size <= bytes.size(); size += 31)
    {
        SCOPED_TRACE(size);
        OpenFile prefix(bytes.first(size));
        Partition * const header = prefix.reader.headerPartition();
        ASSERT_NE(header, nullptr);
        EXPECT_GE(header->metadata()->size(), 4u);

        auto const isWhole = [&](WrittenFile::Part const & part)
        {
            return part.offset + part.packBytes <= size;
        };
        EXPECT_EQ(offsetsForward(prefix.reader).size(),
                  static_cast<std::size_t>(std::count_if(parts.begin(), parts.end(), isWhole)));
    }
}

TEST(Creator, WritesMetadataAnewWhereTheyFit)
{
    FilePlan plan;
    plan.spareSpace = 1000;
    plan.runInSize = 50;
    Making making(plan);
    making.write();
    making.finish();

    auto const update = [&]
    {
        making.file.seek(plan.runInSize);
        return making.creator->updatePartition(0, CLOSED);
    };
    auto const size = [&]
    {
        return making.header.metadata->serializedSize(true, true);
    };
    auto const & pack = making.creator->partitionPacks().at(0).pack;
    EXPECT_FALSE(pack->isOpen());
    EXPECT_NE(pack->footerPartition(), 0u);

    UInt64 const room = pack->headerByteCount();
    for (UInt64 letters = (room - size()) / 2 - 50; size() <= room; ++letters)
    {
        Types::UTF16String const name(Templates::wstring(letters, u'x').c_str());
        making.header.package.packageName(&name);
        EXPECT_EQ(update(), size() == room || size() + 20 <= room) << room - size();
        EXPECT_EQ(FileOf(making.file.bytes)->faults(), Faults());
    }
    Bytes const full = making.file.bytes;
    EXPECT_FALSE(update());
    EXPECT_EQ(making.file.bytes, full);
    EXPECT_FAILURE(InvalidValue, "it != impl_ -> offsetPartitionPacksMap_.end (): Invalid partition offset",
                   making.creator->updatePartition(1, CLOSED));

    // Another pattern gets into all packs, if their metadata fit.
    Types::UniversalLabel const pattern = sample<Types::UniversalLabel>();
    making.header.preface.operationalPattern(&pattern);
    EXPECT_FALSE(making.creator->updatePartitions(making.file, true));
    making.header.package.packageName(nullptr);
    EXPECT_TRUE(making.creator->updatePartitions(making.file, true));
    FileOf updated(making.file.bytes);
    EXPECT_EQ(updated->faults(), Faults());
    for (WrittenFile::Part const & part : updated->parts())
        EXPECT_EQ(part.pack.operationalPattern(), pattern) << part.offset;
}

TEST(Creator, RefusesASinkThatLacksWhatIsToBeUpdated)
{
    FilePlan plan;
    plan.sources.front().patched = true;
    Making making(plan);
    making.write();
    BytesFile empty;
    EXPECT_FAILURE(InvalidPosition, "sink.seek(position) == position: The sink ends ahead of what is to be updated",
                   making.creator->finishWork(empty));
}

}}}

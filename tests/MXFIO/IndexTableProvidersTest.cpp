#include "MXFIO/IndexTableCompleteCache.h"
#include "MXFIO/IndexTableParseOnRequestProvider.h"
#include "MXFIO/IndexTablePositionEstimateProvider.h"
#include "MXFIO/IndexTableStreamingProvider.h"
#include "Platform/Clock.h"
#include "support/Failure.h"
#include "support/GrowingSource.h"
#include "support/IndexSegments.h"
#include "support/OpenFile.h"

#include <gmock/gmock.h>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Cache = Templates::SharedPtr<IndexTableCache>;

unsigned int const BODY_SID = 1;
unsigned int const INDEX_SID = 2;
Int64 const NONE = -1;

Cache newCache()
{
    return Cache(new IndexTableCompleteCache(BODY_SID, INDEX_SID));
}

// Where the segment starts that a provider has for an edit unit.
Int64 startFor(IndexTableProvider & provider, Int64 editUnit)
{
    auto const segment = provider.segment(editUnit);
    return segment ? segment->indexStartPosition().value() : NONE;
}

FilePart body(Bytes const & index, unsigned int indexSID = INDEX_SID)
{
    return {BODY, CLOSED, {}, essence(2, 300), BODY_SID, index, index.empty() ? 0 : indexSID};
}

FilePart footer(Bytes const & index = {})
{
    return {FOOTER, CLOSED, {}, {}, 0, index, index.empty() ? 0 : INDEX_SID};
}

TEST(IndexTableCompleteCache, KeepsSegmentsOfOneIndex)
{
    IndexTableCompleteCache cache(BODY_SID, INDEX_SID);
    cache.add(Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>());
    EXPECT_FALSE(cache.lastSegment());

    auto foreign = indexSegment(0, 10);
    foreign->bodySID(3);
    EXPECT_FAILURE(InvalidID, "Trying to cache an IndexTableSegment with different bodySID",
                   cache.add(readSegment(serialized(*foreign))));
    foreign->bodySID(BODY_SID);
    foreign->indexSID(3);
    EXPECT_FAILURE(InvalidID, "Trying to cache an IndexTableSegment with different indexSID",
                   cache.add(readSegment(serialized(*foreign))));

    auto const first = readSegment(serialized(*indexSegment(10, 10))); // names no index
    auto const ahead = readSegment(indexBytes(0, 10));
    for (auto const & segment : {first, readSegment(indexBytes(10, 10)), ahead, readSegment(indexBytes(0, 10))})
        cache.add(segment);
    EXPECT_EQ(cache.segment(10), first);
    EXPECT_EQ(cache.segment(9), ahead);
    EXPECT_EQ(cache.lastSegment(), first);
    EXPECT_FALSE(cache.segment(20));
}

enum RIP
{
    REAL,
    MADE,
    LYING
};

struct FileCase
{
    char const * name;
    std::vector<FilePart> parts;
    std::vector<std::pair<Int64, Int64>> starts; // of the segment for an edit unit
    Bytes runIn = {};
    RIP rip = REAL;
};

std::vector<FilePart> const REGULAR = {
    {HEADER}, body(indexBytes(0, 10)), body(indexBytes(10, 10)), body(indexBytes(20, 10)), body(indexBytes(30, 10)),
    footer()};
std::vector<std::pair<Int64, Int64>> const REGULAR_STARTS = {{25, 20}, {0, 0}, {39, 30}, {40, NONE}, {10, 10}};

Bytes damaged(Bytes segment)
{
    segment[segment.size() - 10] = 0xFF; // a length that leads out of the set
    segment[30] = 0xFF;
    return segment;
}

FileCase const FILES[] = {
    {"a segment in each partition", REGULAR, REGULAR_STARTS},
    {"behind a run-in", REGULAR, REGULAR_STARTS, repeated(99, 0)},
    {"a random index pack that was made", REGULAR, REGULAR_STARTS, repeated(99, 0), MADE},
    {"a random index pack that lies", REGULAR, REGULAR_STARTS, {}, LYING},
    {"partitions without index between",
     {{HEADER},
      body({}),
      body({}),
      body(indexBytes(0, 10)),
      body({}),
      body({}),
      body({}),
      body(indexBytes(10, 10)),
      body({}),
      footer()},
     {{12, 10}, {3, 0}, {20, NONE}}},
    {"all in the footer",
     {{HEADER}, body({}), body({}), footer(indexBytes(0, 10) + indexBytes(10, 5))},
     {{12, 10}, {3, 0}, {15, NONE}}},
    {"again in the footer",
     {{HEADER}, body(indexBytes(0, 10)), body(indexBytes(10, 5)), footer(indexBytes(0, 10) + indexBytes(10, 5))},
     {{3, 0}, {12, 10}, {15, NONE}}},
    {"a hole",
     {{HEADER}, body(indexBytes(0, 10)), body(indexBytes(30, 10)), body(indexBytes(20, 10)), footer()},
     {{15, NONE}, {5, 0}, {35, 30}, {10, NONE}}},
    {"one without end",
     {{HEADER, CLOSED, {}, {}, 0, indexBytes(0, 0), INDEX_SID}, body({}), footer()},
     {{0, 0}, {Int64(1) << 60, 0}}},
    {"another index between",
     {{HEADER}, body(indexBytes(0, 10)), body(indexBytes(10, 10), 7), body(indexBytes(10, 5)), footer()},
     {{12, 10}, {16, NONE}}},
    {"a damaged segment",
     {{HEADER},
      body(indexBytes(0, 5) + damaged(indexBytes(5, 5)) + indexBytes(5, 5)),
      body(indexBytes(10, 5)),
      footer()},
     {{12, 10}, {3, 0}, {6, NONE}}},
    {"no index", {{HEADER}, body({}), footer()}, {{0, NONE}, {9, NONE}}},
    {"two partitions", {{HEADER, CLOSED, {}, {}, 0, indexBytes(0, 9), INDEX_SID}, footer()}, {{0, 0}, {9, NONE}}},
};

// A file, its reader and a provider of each kind.
struct Providers
{
    explicit Providers(FileCase const & c) : open(MXFFile(c.parts, c.rip == REAL, c.runIn))
    {
        if (c.rip == LYING)
        {
            Templates::auto_ptr<Packs::RandomIndexPack> rip(new Packs::RandomIndexPack);
            for (UInt64 offset : {0, 50, 100, 150, 1 << 30})
                rip->add(BODY_SID, offset);
            open.reader.loadRIP(rip);
        }
        else
            open.reader.loadRipFromFooter();

        all.emplace_back(new IndexTableParseOnRequestProvider(newCache(), open.reader, INDEX_SID));
        all.emplace_back(new IndexTablePositionEstimateProvider(newCache(), open.reader, INDEX_SID, BODY_SID, 0, 0,
                                                                open.reader.footerPartition()));
        all.emplace_back(
            new IndexTablePositionEstimateProvider(newCache(), open.reader, INDEX_SID, BODY_SID, 1000, 1400, nullptr));
        all.emplace_back(new IndexTableStreamingProvider(newCache(), open.reader, INDEX_SID, {}));
    }

    OpenFile open;
    std::vector<std::unique_ptr<IndexTableProvider>> all;
};

TEST(IndexTableProviders, AgreeOnEachFile)
{
    for (FileCase const & c : FILES)
    {
        Providers providers(c);
        for (std::size_t i = 0; i < providers.all.size(); ++i)
            for (int again = 0; again < 2; ++again)
                for (auto const & [editUnit, start] : c.starts)
                {
                    UInt64 const position = providers.open.source.seek(31);
                    EXPECT_EQ(startFor(*providers.all[i], editUnit), start) << c.name << ", " << i << ", " << editUnit;
                    EXPECT_EQ(providers.open.source.absoluteOffset(), position) << c.name << ", " << i;
                }
    }
}

TEST(IndexTableProviders, ReadWhatIsNeededAndOnce)
{
    std::vector<FilePart> parts = {{HEADER}};
    for (int i = 0; i < 300; ++i)
        parts.push_back(body(indexBytes(i * 10, 10)));
    parts.push_back(footer(indexBytes(3000, 10)));
    MXFFile const file(parts);

    // How many partitions a look-up reads.
    auto const cost = [&](OpenFile & open, IndexTableProvider & provider, Int64 editUnit)
    {
        auto const known = [&]
        {
            return std::count_if(parts.begin(), parts.end(),
                                 [&, i = 0](FilePart const &) mutable
                                 {
                                     UInt64 const offset = file.offset(i++);
                                     Partition const * const partition = open.reader.find(offset);
                                     return partition != nullptr && partition->partitionAbsoluteOffset() == offset;
                                 });
        };
        auto const before = known();
        provider.segment(editUnit);
        return known() - before;
    };

    OpenFile walked(file);
    IndexTableParseOnRequestProvider walk(newCache(), walked.reader, INDEX_SID);
    EXPECT_EQ(cost(walked, walk, 55), 7);
    EXPECT_EQ(cost(walked, walk, 65), 1);
    EXPECT_EQ(cost(walked, walk, 5000), 302 - 8);
    UInt64 const read = walked.source.bytesRead();
    walk.segment(5000);
    EXPECT_EQ(walked.source.bytesRead(), read) << "all was read";

    OpenFile guessed(file);
    guessed.reader.loadRIP();
    IndexTablePositionEstimateProvider guess(newCache(), guessed.reader, INDEX_SID, BODY_SID, 3000, 3010,
                                             guessed.reader.footerPartition());
    EXPECT_LE(cost(guessed, guess, 1234), 2);
    EXPECT_LE(cost(guessed, guess, 2000), 2);
    EXPECT_LE(cost(guessed, guess, 5000), 2);
    EXPECT_EQ(cost(guessed, guess, 5000), 0);
}

UInt64 testTime = 0;

class IndexTableStreaming : public testing::Test
{
protected:
    IndexTableStreaming()
    {
        testTime = 70000;
        Platform::replaceMonotonicClock([] { return testTime; });
    }
    ~IndexTableStreaming() override { Platform::replaceMonotonicClock(nullptr); }
};

TEST_F(IndexTableStreaming, FollowsAFileThatGrows)
{
    std::vector<FilePart> parts = REGULAR;
    parts.back() = footer(indexBytes(40, 5));
    MXFFile const file(parts, true, repeated(9, 0));
    auto const end = [&](std::size_t part)
    {
        return file.offset(part + 1) + 9;
    };

    GrowingSource source(file.bytes(), end(1));
    Reader2 reader(source, Schema().dictionary(), SEARCH_LIMIT);
    IndexTableStreamingProvider provider(newCache(), reader, INDEX_SID, {});
    EXPECT_EQ(startFor(provider, 5), 0);
    EXPECT_EQ(startFor(provider, 15), NONE);

    // Written up to here, after so many milliseconds, edit unit and segment.
    UInt64 const pack = MXFFile::PACK_SIZE;
    std::tuple<UInt64, UInt64, Int64, Int64, Int64> const steps[] = {
        {end(2), 4999, 15, NONE, 0},
        {end(2), 1, 15, 10, 10},
        {end(2), 5000, 25, NONE, 10},
        {end(2) + 30, 5000, 25, NONE, 10},        // within the pack
        {end(2) + pack, 5000, 25, NONE, 10},      // a fill item might follow
        {end(2) + pack + 40, 5000, 25, NONE, 10}, // within the segment
        {end(3), 5000, 25, 20, 20},
        {end(4) + pack + 17, 5000, 35, 30, 30}, // within the footer's
        {file.bytes().size(), 5000, 44, 40, 40},
    };
    for (auto const & [size, wait, editUnit, start, lastStart] : steps)
    {
        SCOPED_TRACE(size);
        source.writeUpTo(size);
        testTime += wait;
        EXPECT_EQ(startFor(provider, editUnit), start);
        EXPECT_EQ(provider.lastSegment()->indexStartPosition().value(), lastStart);

        if (wait < 5000)
            continue;
        UInt64 const bytesRead = source.bytesRead();
        unsigned int const refreshes = source.refreshes();
        testTime += 4999;
        EXPECT_EQ(startFor(provider, 100), NONE);
        EXPECT_EQ(source.bytesRead(), bytesRead) << "it isn't time to look";
        EXPECT_EQ(source.refreshes(), refreshes);
        testTime -= 4999;
    }

    unsigned int const refreshes = source.refreshes();
    testTime += 50000;
    EXPECT_EQ(startFor(provider, 100), NONE);
    EXPECT_EQ(source.refreshes(), refreshes) << "nothing comes behind a footer";
}

TEST_F(IndexTableStreaming, NeedsAHeader)
{
    OpenFile open(repeated(500, 0));
    EXPECT_FAILURE(InvalidFormat, "headerPartition != 0: Cannot stream MXF file without header partition!",
                   IndexTableStreamingProvider(newCache(), open.reader, INDEX_SID, {}));
}

}}}

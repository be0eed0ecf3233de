// Index tables as they are written, read back from their bytes.

#include "GenericContainer/DefaultIndexTableGenerator.h"

#include "GenericContainer/IndexSegmentInfo.h"
#include "IndexTables/DeltaEntry.h"
#include "IndexTables/IndexEntry.h"
#include "IndexTables/IndexTableSegment.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/Failure.h"

namespace Vantry { namespace GenericContainer { namespace {

using namespace MXFIO;
using IndexTables::IndexEntry;
using IndexTables::IndexTableSegment;
using Tests::Bytes;
using Segments = std::vector<Templates::SharedPtr<IndexTableSegment>>;

Segments segmentsIn(Bytes const & bytes);

// An element of constant size or, with 0, of variable size.
struct Element : IndexEntryData
{
    Element(UInt32 size) : IndexEntryData{size, 0, 0, false, false, false, false, size != 0} {}

    Element with(bool IndexEntryData::*mark, UInt32 IndexEntryData::*size = nullptr, UInt32 bytes = 0) const
    {
        Element changed = *this;
        changed.*mark = true;
        if (size != nullptr)
            changed.*size = bytes;
        return changed;
    }

    Element temporal() const { return with(&IndexEntryData::isTemporal); }
    Element extended() const { return with(&IndexEntryData::needsExtendedIndex); }
    Element closing(UInt32 item) const { return with(&IndexEntryData::isPadToItem, &IndexEntryData::itemSize, item); }
    Element filled(UInt32 bound = 0) const
    {
        return with(&IndexEntryData::isFilled, &IndexEntryData::boundedEditUnitSize, bound);
    }
};

IndexSegmentInfo frames(std::vector<Element> const & elements, UInt32 paddedSize = 0, bool extendedTable = false)
{
    return {{30000, 1001}, 20,
            paddedSize,    IndexSegmentInfo::FRAME_WRAPPING,
            extendedTable, {elements.begin(), elements.end()}};
}

IndexSegmentInfo clip(std::vector<Element> const & elements, bool extendedTable = false)
{
    IndexSegmentInfo info = frames(elements, 0, extendedTable);
    info.wrapKind = IndexSegmentInfo::CLIP_WRAPPING;
    return info;
}

// A generator in the hands of a worker and of a partition writer.
class Writing
{
public:
    Writing(IndexSegmentInfo const & info, IndexTableSegmentType type,
            IndexTableGeneration duringEssence = INDEX_REPEATED, IndexTableGeneration afterEssence = INDEX_REPEATED)
    {
        generator.setupIndexSegments(info);
        generator.bodySID(1);
        generator.indexSID(2);
        generator.indexStrategies(duringEssence, afterEssence, type);
    }

    static IndexEntry entry(UInt64 editUnit, unsigned char slices, unsigned char positions)
    {
        IndexEntry entry(1000 * editUnit);
        for (unsigned char i = 0; i < slices; ++i)
            entry.addSliceOffset(i, static_cast<unsigned int>(10 * editUnit + i));
        for (unsigned char i = 0; i < positions; ++i)
            entry.addPosTable(i, {static_cast<int>(editUnit), 1000003});
        return entry;
    }

    void writeEditUnits(UInt64 howMany)
    {
        for (; howMany > 0; --howMany)
        {
            generator.writeIndexEntry(entry(editUnits, generator.sliceCount(), generator.posTableCount()));
            ++editUnits;
            generator.currentContentInfo(editUnits, 1000 * editUnits);
        }
    }

    Segments writePartition(bool afterEssence)
    {
        generator.updateIndex();
        unsigned int const size = generator.rawIndexByteCount(afterEssence);
        Tests::BytesSink sink;
        if (size != 0)
            generator.writeIndexSegments(afterEssence, sink);
        EXPECT_EQ(sink.bytes().size(), size);
        return segmentsIn(sink.bytes());
    }

    DefaultIndexTableGenerator generator;
    UInt64 editUnits = 0;
};

Segments segmentsIn(Bytes const & bytes)
{
    Tests::BytesSource source(bytes);
    KLV::Reader reader(source);
    Segments segments;
    for (UInt64 skipped = 0; !source.endOfStream();)
        segments.emplace_back(new IndexTableSegment(*reader.nextKLV(skipped, 0), nullptr));
    return segments;
}

// "position:slice:delta" of each delta entry, then the counts of slices and
// positions, then the size of an edit unit.
std::string told(IndexTableSegment const & segment)
{
    std::string text;
    for (unsigned int i = 0; i < segment.deltaEntryCount(); ++i)
    {
        IndexTables::DeltaEntry const & delta = segment.deltaEntry(i);
        text += std::to_string(delta.posTableIndex()) + ":" + std::to_string(delta.slice()) + ":" +
                std::to_string(delta.elementDelta()) + " ";
    }
    auto const told = [](auto const * count)
    {
        return count ? std::to_string(count->value()) : "-";
    };
    return text + "| " + told(segment.sliceCount()) + " " + told(segment.posTableCount()) + " | " +
           told(segment.editUnitByteCount());
}

TEST(DefaultIndexTableGenerator, TellsWhereElementsLie)
{
    struct Case
    {
        char const * name;
        IndexSegmentInfo info;
        IndexTableSegmentType asked;
        IndexTableSegmentType resolved;
        char const * expected;
    };
    Element const variable = 0;
    Element bounded = Element(540).filled(500);
    bounded.isCBE = false;
    Case const cases[] = {
        {"one constant element", frames({Element(1000)}), INDEX_AUTOMATIC, INDEX_CONSTANT_ELEMENT, "| - - | 1000"},
        {"one of type 1", frames({Element(1000)}), INDEX_CONSTANT, INDEX_CONSTANT, "0:0:0 | 0 - | 1000"},
        {"two constant elements", frames({1000, 500}), INDEX_AUTOMATIC, INDEX_CONSTANT, "0:0:0 0:0:1000 | 0 - | 1500"},
        {"variable ones among constant ones", frames({97, variable.temporal(), 500, variable, 60}), INDEX_AUTOMATIC,
         INDEX_VARIABLE, "0:0:0 -1:0:97 0:1:0 0:1:500 0:2:0 | 2 - | 0"},
        {"a variable one in a padded edit unit", frames({variable, 500}, 4096), INDEX_AUTOMATIC, INDEX_VARIABLE,
         "0:0:0 0:1:0 | 1 - | 4096"},
        {"constant with positions", frames({1000, Element(500).extended(), Element(500).extended(), 9}, 0, true),
         INDEX_AUTOMATIC, INDEX_VARIABLE, "0:0:0 1:0:1000 2:1:0 0:2:0 | 2 2 | 2009"},
        {"fill at a constant place", frames({Element(1000).filled(900), 500}), INDEX_AUTOMATIC_WITH_FILL,
         INDEX_CONSTANT_WITH_FILL, "0:0:0 0:0:920 0:0:1000 | 0 - | 1500"},
        {"fill behind a variable one", frames({variable.filled(), 500, variable}), INDEX_AUTOMATIC_WITH_FILL,
         INDEX_VARIABLE_WITH_FILL, "0:0:0 0:1:0 0:2:0 0:2:500 | 2 - | 0"},
        {"fill behind a bounded one", frames({bounded, variable}), INDEX_AUTOMATIC_WITH_FILL, INDEX_VARIABLE_WITH_FILL,
         "0:0:0 0:1:0 0:1:0 | 1 - | 0"},
        {"fill that isn't asked for", frames({bounded, variable}), INDEX_AUTOMATIC, INDEX_VARIABLE,
         "0:0:0 0:0:540 | 0 - | 0"},
        {"a padded item", frames({300, Element(200).closing(1000), 50}), INDEX_AUTOMATIC, INDEX_CONSTANT,
         "0:0:0 0:0:300 0:0:1000 | 0 - | 1050"},
        {"a padded edit unit", frames({300, Element(200).closing(0)}, 4096), INDEX_AUTOMATIC, INDEX_CONSTANT,
         "0:0:0 0:0:300 | 0 - | 4096"},
        {"a clip of constant edit units", clip({Element(8)}), INDEX_AUTOMATIC, INDEX_CONSTANT_ELEMENT, "| - - | 8"},
        {"a clip with order", clip({variable.temporal()}, true), INDEX_AUTOMATIC, INDEX_VARIABLE, "-1:0:0 | 0 - | 0"},
        {"a clip with positions", clip({Element(8).extended()}, true), INDEX_AUTOMATIC, INDEX_VARIABLE,
         "1:0:0 | 0 1 | 8"},
        {"a container of nothing", frames({}), INDEX_AUTOMATIC, INDEX_CONSTANT, "| - - | 0"},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        Writing writing(c.info, c.asked);
        EXPECT_EQ(writing.generator.indexSegmentType(), c.resolved);
        writing.writeEditUnits(3);
        Segments const segments = writing.writePartition(false);
        ASSERT_EQ(segments.size(), 1u);
        IndexTableSegment const & segment = *segments[0];
        EXPECT_EQ(told(segment), c.expected);
        EXPECT_EQ(segment.indexEntryCount(), c.resolved < INDEX_VARIABLE ? 0u : 3u);
        EXPECT_EQ(segment.indexDuration().value(), segment.indexEntryCount());
        EXPECT_EQ(segment.bodySID().value(), 1u);
        EXPECT_EQ(segment.indexSID()->value(), 2u);
        EXPECT_EQ(segment.indexEditRate(), Types::Rational(30000, 1001));
    }
}

// It takes over from another generator after 100 edit units.
TEST(DefaultIndexTableGenerator, ClosesASegmentAt64KB)
{
    UInt64 const first = 100, count = 20000;
    Writing writing(frames({0, Element(0).extended(), 0}, 0, true), INDEX_AUTOMATIC);
    writing.editUnits = first;
    writing.generator.currentContentInfo(first, 0);
    writing.writeEditUnits(count);
    Segments const segments = writing.writePartition(true);

    UInt64 editUnit = first;
    for (auto const & segment : segments)
    {
        UInt64 const size = segment->serializedSize();
        EXPECT_LE(size, 65535u);
        EXPECT_TRUE(segment == segments.back() || (size > 64512 && size - IndexEntry::sizeOf(2, 1) <= 64512)) << size;
        EXPECT_EQ(segment->indexStartPosition().value(), Int64(editUnit));
        EXPECT_EQ(segment->indexDuration().value(), segment->indexEntryCount());
        for (unsigned int i = 0; i < segment->indexEntryCount(); ++i)
            ASSERT_EQ(Tests::serialized(segment->indexEntry(i)), Tests::serialized(Writing::entry(editUnit++, 2, 1)));
    }
    EXPECT_EQ(editUnit, first + count);
}

TEST(DefaultIndexTableGenerator, GivesEachPartitionWhatItsStrategyAsksFor)
{
    // variable: starts of the segments in each partition
    std::tuple<IndexTableGeneration, IndexTableGeneration, char const *, char const *> const cases[] = {
        {INDEX_NONE, INDEX_NONE, "| | | |", "| | | |"},
        {INDEX_NONE, INDEX_FOLLOWING, "| | | 0 2 4 | after", "| | | 0 | after"},
        {INDEX_NONE, INDEX_REPEATED_IF_VARIABLE, "| | | 0 2 4 | after", "| | | 0 |"},
        {INDEX_FOLLOWING, INDEX_NONE, "| 0 | 0 2 | |", "0 | | | |"},
        {INDEX_FOLLOWING, INDEX_FOLLOWING, "| 0 | 0 2 | 2 4 | after", "0 | | | 0 | after"},
        {INDEX_FOLLOWING, INDEX_REPEATED, "| 0 | 0 2 | 0 2 4 | after", "0 | | | 0 | after"},
        {INDEX_REPEATED, INDEX_REPEATED, "| 0 | 0 2 | 0 2 4 | after", "0 | 0 | 0 | 0 | after"},
    };
    for (auto const & [duringEssence, afterEssence, variable, constant] : cases)
        for (bool isConstant : {false, true})
        {
            SCOPED_TRACE(testing::Message() << duringEssence << " " << afterEssence << " " << isConstant);
            Writing writing(frames({Element(isConstant ? 100 : 0)}), INDEX_AUTOMATIC, duringEssence, afterEssence);
            std::string text;
            for (unsigned int partition = 0; partition < 4; ++partition)
            {
                writing.writeEditUnits(partition == 0 ? 0 : 2);
                for (auto const & segment : writing.writePartition(partition == 3))
                    text += std::to_string(segment->indexStartPosition().value()) + " ";
                text += partition == 3 ? "|" : "| ";
            }
            text += writing.generator.indexesAfterEndOfEssence() ? " after" : "";
            EXPECT_EQ(text, isConstant ? constant : variable);
        }
}

// What is asked for while a segment is open has its entries so far, and is
// written again when it has more.
TEST(DefaultIndexTableGenerator, WritesAnOpenSegmentAgain)
{
    Writing writing(frames({Element(0)}), INDEX_VARIABLE, INDEX_FOLLOWING, INDEX_FOLLOWING);
    writing.writeEditUnits(2);
    Tests::BytesSink sink;
    writing.generator.writeIndexSegments(false, sink);
    writing.writeEditUnits(1);
    Segments const early = segmentsIn(sink.bytes()), late = writing.writePartition(true);
    ASSERT_TRUE(early.size() == 1 && late.size() == 1);
    EXPECT_EQ(early[0]->indexEntryCount(), 2u);
    EXPECT_EQ(late[0]->indexEntryCount(), 3u);
    EXPECT_EQ(late[0]->indexDuration().value(), 3);
}

TEST(DefaultIndexTableGenerator, IsSetUpOnceBeforeItsUse)
{
    DefaultIndexTableGenerator twice, late, never;
    twice.setupIndexSegments(frames({Element(0)}));
    EXPECT_FAILURE(InvalidState, "indexSegmentInfo_.get () == 0: DefaultIndexTableGenerator was already configured.",
                   twice.setupIndexSegments(frames({Element(0)})));
    EXPECT_EQ(late.sliceCount(), 0);
    EXPECT_FAILURE(InvalidState, "!initialized_: Unable to configue Index Segment that was already used.",
                   late.setupIndexSegments(frames({Element(0)})));

    never.indexStrategies(INDEX_NONE, INDEX_REPEATED, INDEX_AUTOMATIC);
    for (int i = 0; i < 2; ++i)
        EXPECT_FAILURE(InvalidState,
                       "indexSegmentInfo_.get () != 0: Default implementation of IndexTableGenerator was already "
                       "configured.",
                       never.writeIndexEntry(IndexEntry(0)));
    EXPECT_FAILURE(NotImplemented,
                   "Cannot generate IndexTables for more then one Clip wrapped element. Please use OP1b or higher or "
                   "discard indexTables.",
                   Writing(clip({0, 0}), INDEX_VARIABLE).generator.updateIndex());
    EXPECT_FAILURE(IndexOutOfBounds,
                   "slice_ <= MOST_SLICES && posTableIndex <= MOST_POSITIONS: The container has more elements of "
                   "variable size or place than an index table can tell apart.",
                   Writing(frames(std::vector<Element>(257, 0)), INDEX_VARIABLE).generator.updateIndex());
}

}}}

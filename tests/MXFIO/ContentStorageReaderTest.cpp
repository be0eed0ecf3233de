#include "IndexTables/GOPInfo.h"
#include "MXFIO/Seeker.h"
#include "MXFIO/SystemItemKLVPacketListener.h"
#include "support/EssenceFile.h"
#include "support/Failure.h"

#include <gmock/gmock.h>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using IndexTables::DeltaEntry;
using IndexTables::IndexEntry;
using Ratio = Templates::Rational<Int64>;
using testing::ElementsAre;

unsigned int const EDIT_UNITS = 10;

// Edit units of three elements, fill behind each; each starts on the grid.
UInt64 valueSizeOf(unsigned int editUnit, bool isConstant)
{
    return isConstant ? 300 : 200 + 17 * editUnit;
}

Bytes editUnit(unsigned int number, bool isConstant)
{
    return element(SYSTEM_ITEM, number, 37) + fill(43) + element(PICTURE, number, valueSizeOf(number, isConstant)) +
           element(SOUND, number, 80) + fill(20);
}

UInt64 const PICTURE_DELTA = 100;

Bytes editUnits(unsigned int from, unsigned int to, bool isConstant)
{
    Bytes bytes;
    for (unsigned int i = from; i < to; ++i)
        bytes += editUnit(i, isConstant);
    return bytes;
}

std::vector<IndexEntry> entries(unsigned int from, unsigned int to)
{
    std::vector<IndexEntry> result;
    for (unsigned int i = from; i < to; ++i)
    {
        IndexEntry entry(editUnits(0, i, false).size());
        entry.addSliceOffset(0, static_cast<unsigned int>(PICTURE_DELTA + 20 + valueSizeOf(i, false)));
        result.push_back(entry);
    }
    return result;
}

std::vector<DeltaEntry> const DELTAS = {{0, 0, 0}, {-1, 0, PICTURE_DELTA}, {0, 1, 0}};
std::vector<DeltaEntry> const CONSTANT_DELTAS = {{0, 0, 0}, {0, 0, PICTURE_DELTA}, {0, 0, 420}};

// The same essence in three partitions, indexed in each of these ways.
struct IndexCase
{
    char const * name;
    bool isConstant;
    Bytes header, body, footer;
};

std::vector<IndexCase> indexCases()
{
    auto const size = static_cast<unsigned int>(editUnit(0, true).size());
    return {
        {"constant, of open length", true, constantIndex(0, 0, size, CONSTANT_DELTAS), {}, {}},
        {"constant, in the footer", true, {}, {}, constantIndex(0, EDIT_UNITS, size, CONSTANT_DELTAS)},
        {"constant, in pieces", true, {}, constantIndex(0, 4, size), constantIndex(4, 6, size)},
        {"variable, in the footer", false, {}, {}, variableIndex(0, entries(0, EDIT_UNITS), DELTAS)},
        {"variable, in pieces",
         false,
         variableIndex(0, entries(0, 5), DELTAS),
         {},
         variableIndex(5, entries(5, EDIT_UNITS), DELTAS)},
    };
}

MXFFile fileOf(IndexCase const & c, bool withRIP = true, Bytes const & runIn = {})
{
    auto const part =
        [&](Packs::PartitionPack::PartitionKind kind, unsigned int from, unsigned int to, Bytes const & index)
    {
        Bytes const body = editUnits(from, to, c.isConstant);
        return FilePart{kind, CLOSED, {}, body, body.empty() ? 0 : BODY_SID, index, index.empty() ? 0 : INDEX_SID};
    };
    return MXFFile({part(HEADER, 0, 3, c.header), part(BODY, 3, 7, c.body), part(BODY, 7, EDIT_UNITS, {}),
                    part(FOOTER, 0, 0, c.footer)},
                   withRIP, runIn);
}

IndexCase const NO_INDEX = {"none", true, {}, {}, {}};

std::vector<TrackFacts> const TRACKS = {{1, PICTURE, {25, 1}, EDIT_UNITS}, {2, SOUND, {25, 1}, EDIT_UNITS}};

void expectAllFound(ContentStorageReader & content)
{
    EXPECT_TRUE(content.isSeekExact());
    EXPECT_EQ(content.duration(), Ratio(EDIT_UNITS));
    EXPECT_THAT(content.elements(), ElementsAre(SYSTEM_ITEM, PICTURE, SOUND));
    for (int wanted : {7, 0, 9, 2, 3, 6, 8, 1})
    {
        EXPECT_TRUE(content.seek(wanted));
        EXPECT_EQ(content.editUnit(), wanted);
        EXPECT_EQ(nextByte(content), wanted);
        EXPECT_EQ(content.editUnit(), wanted + 1);
        EXPECT_EQ(content.nextElementIndex(), 1u);
    }
    EXPECT_FALSE(content.seek(EDIT_UNITS));
    EXPECT_FALSE(content.seek(-1));
    EXPECT_EQ(nextByte(content), 1) << "a seek that failed has moved";
}

TEST(ContentStorageReader, FindsEveryEditUnitByAnIndex)
{
    for (IndexCase const & c : indexCases())
        for (bool withRIP : {true, false})
            for (Int64 duration : {Int64(EDIT_UNITS), Int64(-1)})
            {
                SCOPED_TRACE(testing::Message() << c.name << (withRIP ? "" : ", no RIP") << ", duration " << duration);
                ContainerFacts facts({{1, PICTURE, {25, 1}, duration}});
                Bytes const bytes = fileOf(c, withRIP, repeated(withRIP ? 77 : 0, 1)).bytes();
                OpenContainer open(bytes, facts, withRIP);
                expectAllFound(open.content);

                BytesSource source(bytes);
                Reader plain(source, Tests::Schema().dictionary(), SEARCH_LIMIT);
                ContentStorageReader content(plain, facts.data, withRIP, true, {});
                expectAllFound(content);
                EXPECT_EQ(content.containerSize(), Int64(editUnits(0, EDIT_UNITS, c.isConstant).size()));
            }
}

TEST(ContentStorageReader, ReadsThroughAllPartitionsOnce)
{
    ContainerFacts facts(TRACKS);
    OpenContainer open(fileOf(NO_INDEX).bytes(), facts);
    for (int i = 0; i < static_cast<int>(EDIT_UNITS); ++i)
        for (unsigned int next : {1u, 2u, 0u})
        {
            EXPECT_EQ(nextByte(open.content), i);
            EXPECT_EQ(open.content.editUnit(), i + 1);
            EXPECT_EQ(open.content.nextElementIndex(), next);
            open.file.source.seek(5); // whoever moved it
        }
    EXPECT_EQ(nextByte(open.content), -1);
    UInt64 const before = open.file.source.bytesRead();
    EXPECT_EQ(nextByte(open.content), -1);
    EXPECT_EQ(open.file.source.bytesRead(), before) << "the end is looked for once";
    EXPECT_TRUE(open.content.seek(0));
    EXPECT_EQ(nextByte(open.content), 0);
}

TEST(ContentStorageReader, GoesToElementsByIndexEntries)
{
    ContainerFacts facts(TRACKS);
    OpenContainer open(fileOf(indexCases()[3]).bytes(), facts);
    ContentStorageReader & content = open.content;
    EXPECT_TRUE(content.temporalReordering());
    EXPECT_EQ(content.seeker().temporalReorderingTrack(), PICTURE);

    // The system item is read with the element behind it.
    std::tuple<unsigned int, unsigned int, unsigned int> const CASES[] = {
        {PICTURE, SYSTEM_ITEM, 0}, {SOUND, SOUND, 2}, {SOUND | 0x00050000, SOUND, 2}};
    for (auto const & [trackNumber, lands, index] : CASES)
    {
        EXPECT_TRUE(content.fineSeek(8, trackNumber));
        EXPECT_EQ(content.nextElementIndex(), index);
        EXPECT_EQ(content.editUnit(), index == 0 ? 8 : 9);
        auto const packet = content.nextKLV(0);
        EXPECT_EQ(key2TrackNumber(packet->key()), lands);
        EXPECT_EQ(content.editUnit(), 9);
    }
    EXPECT_FALSE(content.fineSeek(EDIT_UNITS, SOUND));
    EXPECT_FAILURE(KeyNotFound, "element != elements_.end (): Track number not in Essence container",
                   content.fineSeek(0, 0x17010100));

    IndexTables::GOPInfo info = {};
    EXPECT_TRUE(content.seeker().gopInfo(3, info));
    EXPECT_EQ(info.gopIndex, 3);
    EXPECT_FALSE(content.seeker().gopInfo(EDIT_UNITS, info));
}

// Delta entries may leave the system item out. It starts the edit unit all the
// same.
TEST(ContentStorageReader, CountsEditUnitsByTheirFirstPacket)
{
    std::vector<DeltaEntry> const deltas = {{0, 0, PICTURE_DELTA}, {0, 1, 0}};
    IndexCase const c = {"", false, {}, {}, variableIndex(0, entries(0, EDIT_UNITS), deltas)};
    ContainerFacts facts(TRACKS);
    OpenContainer open(fileOf(c).bytes(), facts);
    ContentStorageReader & content = open.content;
    EXPECT_THAT(content.elements(), ElementsAre(PICTURE, SOUND));
    ASSERT_TRUE(content.fineSeek(4, PICTURE));
    for (Int64 next : {4, 4, 5, 5, 5, 6})
    {
        Int64 const before = content.editUnit();
        EXPECT_EQ(nextByte(content), next);
        EXPECT_EQ(content.editUnit(), next + 1) << before;
    }
}

TEST(ContentStorageReader, EstimatesWithoutIndex)
{
    auto const part = [](Packs::PartitionPack::PartitionKind kind, Bytes const & body)
    {
        return FilePart{kind, CLOSED, {}, body, body.empty() ? 0 : BODY_SID};
    };
    MXFFile const file({part(HEADER, essence(40, 980)), part(FOOTER, {})});
    ContainerFacts facts({{1, 0x15010501, {25, 1}, -1}});
    OpenContainer open(file.bytes(), facts);
    EXPECT_FALSE(open.content.isSeekExact());
    EXPECT_EQ(open.content.duration(), Ratio(-1));
    UInt64 offset = 1;
    EXPECT_TRUE(open.content.seeker().bodyOffsetOf(20, offset));
    EXPECT_EQ(offset, 0u) << "nothing is known yet";
    EXPECT_TRUE(open.content.seek(20));
    EXPECT_EQ(open.content.editUnit(), 0) << "which is where the stream stands";
    for (int i = 0; i < 10; ++i)
        nextByte(open.content);
    EXPECT_TRUE(open.content.seeker().bodyOffsetOf(20, offset));
    EXPECT_EQ(offset, 20000u);
    EXPECT_TRUE(open.content.seek(30));
    EXPECT_EQ(nextByte(open.content), 30);
    EXPECT_FALSE(open.content.seek(41)) << "behind the container";

    // Size and duration tell as well.
    ContainerFacts told({{1, 0x15010501, {25, 1}, 40}});
    OpenContainer measured(file.bytes(), told, true, true);
    EXPECT_TRUE(measured.content.seek(25));
    EXPECT_EQ(nextByte(measured.content), 25);
}

TEST(ContentStorageReader, TellsAClipByLabelOrSize)
{
    Bytes const clip = element(SOUND, 1, 4800);
    struct
    {
        char const * name;
        char const * label;
        Bytes body;
        bool isClip;
        Bytes index = {};
    } const CASES[] = {
        {"told", CLIP_WRAPPED, clip, true},
        {"told not to be", FRAME_WRAPPED, clip, false},
        {"all of the container", UNKNOWN_WRAPPING, clip, true},
        {"with fill", UNKNOWN_WRAPPING, clip + fill(50), true},
        {"two packets", UNKNOWN_WRAPPING, clip + clip, false},
        {"with an index that reaches into it", FRAME_WRAPPED, clip, true, constantIndex(0, 0, 96)},
        {"a clip of frames", FRAME_WRAPPED, clip + clip, false, constantIndex(0, 0, 96)},
    };
    for (auto const & c : CASES)
    {
        SCOPED_TRACE(c.name);
        MXFFile const file(
            {{HEADER, CLOSED, {}, c.body, BODY_SID, c.index, c.index.empty() ? 0 : INDEX_SID}, {FOOTER}});
        ContainerFacts facts({{1, SOUND, {25, 1}, 50}}, c.label);
        OpenContainer open(file.bytes(), facts);
        EXPECT_EQ(open.content.isClipWrapped(), c.isClip);
        EXPECT_EQ(open.content.duration(), c.isClip ? Ratio(1) : Ratio(50));
        EXPECT_EQ(open.content.editRate(), c.isClip ? Ratio(1, 2) : Ratio(25));
        EXPECT_EQ(open.content.unitRate(), Ratio(25));
        EXPECT_EQ(open.content.seek(1), !c.isClip);
    }
}

TEST(ContentStorageReader, TakesRateDurationAndTracksFromThePackage)
{
    ContainerFacts facts({{1, PICTURE, {25, 1}, 10}, {7, SOUND, {48000, 1}, 23040}, {9, 0, {0, 1}, 99}});
    OpenContainer open(fileOf(NO_INDEX).bytes(), facts);
    EXPECT_EQ(open.content.editRate(), Ratio(25));
    EXPECT_EQ(open.content.duration(), Ratio(12));
    EXPECT_EQ(open.content.trackNumber2TrackID(SOUND), 7u);
    EXPECT_FAILURE(NotFound,
                   "it != impl_ -> metadataInfo_.trackNumber2TrackID.end (): TrackNumber has no trackID correnpondent.",
                   open.content.trackNumber2TrackID(5));

    // What the metadata don't tell, the bytes do.
    ContainerFacts silent({{1, PICTURE, {25, 1}, -1}});
    EXPECT_EQ(OpenContainer(fileOf(indexCases()[0]).bytes(), silent).content.duration(), Ratio(EDIT_UNITS));
    EXPECT_EQ(OpenContainer(fileOf(indexCases()[3]).bytes(), silent).content.duration(), Ratio(EDIT_UNITS));
}

TEST(ContentStorageReader, NeedsWhatTellsHowToRead)
{
    Bytes const bytes = fileOf(NO_INDEX).bytes();
    {
        ContainerFacts facts(TRACKS);
        facts.data.bodySID(nullptr);
        EXPECT_FAILURE(InvalidID, "bodySID != 0: missing bodySID from essenceContainerdata.",
                       OpenContainer(bytes, facts));
    }
    {
        ContainerFacts facts(TRACKS);
        facts.data.linkedPackageUID(nullptr);
        EXPECT_FAILURE(BrokenLink, "linkedPackage != 0: Source package not found.", OpenContainer(bytes, facts));
    }
    {
        ContainerFacts facts(TRACKS);
        facts.package.descriptor(nullptr);
        EXPECT_FAILURE(BrokenLink, "descriptor != 0: File Descriptor not found.", OpenContainer(bytes, facts));
    }
    {
        ContainerFacts facts(TRACKS);
        dynamic_cast<Metadata::Structural::FileDescriptor &>(*facts.package.descriptor()).essenceContainer(nullptr);
        EXPECT_FAILURE(NotFound, "essenceContainerUL != 0: Essence Container UL not found.",
                       OpenContainer(bytes, facts));
    }
    ContainerFacts clip({{1, SOUND}}, CLIP_WRAPPED);
    MXFFile const filled({{HEADER, CLOSED, {}, fill(30) + fill(30) + element(SOUND, 1, 9), BODY_SID}, {FOOTER}});
    EXPECT_FAILURE(InvalidFormat, "!KLV::isFillItem (key): Expected Essence KLV on clip-wrapped body partition",
                   OpenContainer(filled.bytes(), clip));

    Metadata::Structural::EssenceContainerData stray(clip.data.metaMetadataSet(), nullptr);
    Types::UInt32 const sid(BODY_SID);
    stray.bodySID(&sid);
    OpenFile file(bytes);
    EXPECT_FAILURE(OperationNotAllowed, "metadata != 0: Invalid MetadataSetOwner. Only PartitionMetadata is supported.",
                   ContentStorageReader(file.reader, stray, true, false, {}));
}

TEST(ContentStorageReader, RefusesAMixtureOfIndexes)
{
    auto const size = static_cast<unsigned int>(editUnit(0, true).size());
    IndexCase const mixed = {"", true, variableIndex(0, entries(0, 5)), {}, constantIndex(5, 5, size)};
    ContainerFacts facts(TRACKS);
    OpenContainer open(fileOf(mixed).bytes(), facts);
    EXPECT_TRUE(open.content.seek(2));
    EXPECT_FAILURE(NotImplemented,
                   "previousSegment -> indexEntryCount () == 0 && previousSegment -> editUnitByteCount () != 0 && "
                   "previousSegment -> editUnitByteCount () -> value () != 0: Mixed mode of CBE and VBE "
                   "IndexTableSegments is not supported.",
                   open.content.seek(7));

    // A gap leaves the rest without a place.
    IndexCase const gap = {"", true, constantIndex(0, 3, size), {}, constantIndex(5, 5, size)};
    OpenContainer other(fileOf(gap).bytes(), facts);
    EXPECT_TRUE(other.content.seek(2));
    EXPECT_FALSE(other.content.seek(4));
    EXPECT_FALSE(other.content.seek(6));
}

TEST(ContentStorageReader, LearnsElementsInSpiteOfWrongDeltaEntries)
{
    auto const size = static_cast<unsigned int>(editUnit(0, true).size());
    std::tuple<char const *, std::vector<DeltaEntry>, std::vector<unsigned int>> const CASES[] = {
        {"one packet left out", {{0, 0, 0}, {0, 0, 420}}, {SYSTEM_ITEM, SOUND}},
        {"going back", {{0, 0, 0}, {0, 0, 50}}, {SYSTEM_ITEM, PICTURE, SOUND}},
        {"fitting nothing", {{0, 0, 0}, {0, 0, 99999}}, {SYSTEM_ITEM, PICTURE, SOUND}},
    };
    for (auto const & [name, deltas, elements] : CASES)
    {
        SCOPED_TRACE(name);
        ContainerFacts facts(TRACKS);
        OpenContainer open(fileOf({"", true, constantIndex(0, 0, size, deltas), {}, {}}).bytes(), facts);
        EXPECT_THAT(open.content.elements(), testing::ElementsAreArray(elements));
    }
}

class Listener : public SystemItemKLVPacketListener
{
public:
    void systemItemPacketRead(Templates::auto_ptr<KLV::Packet> packet) override
    {
        EXPECT_EQ(key2TrackNumber(packet->key()), SYSTEM_ITEM);
        ++packets;
    }

    int packets = 0;
};

TEST(ContentStorageReader, GivesSystemItemsToTheListener)
{
    ContainerFacts facts(TRACKS);
    OpenContainer open(fileOf(NO_INDEX).bytes(), facts);
    Listener listener;
    open.content.registerKLVPacketListener(&listener);
    EXPECT_FAILURE(InvalidState,
                   "impl_ -> systemItemListener_ == 0: Only one SystemItemKLVPacketListener can be registered.",
                   open.content.registerKLVPacketListener(&listener));
    while (auto packet = open.content.nextKLV(0))
    {
        if (open.content.editUnit() == 6)
            open.content.unregisterKLVPacketListener();
        open.content.discardKLVPacket(std::move(packet));
    }
    EXPECT_EQ(listener.packets, 5);
}

TEST(EssenceUtils, MeasuresContainers)
{
    Bytes const body = essence(4, 80);
    std::vector<FilePart> parts = {
        {HEADER, CLOSED, {}, body, BODY_SID}, {BODY, CLOSED, {}, body + body, BODY_SID}, {FOOTER}};
    OpenFile file(MXFFile(parts, true, repeated(30, 1)));
    EXPECT_EQ(containerSize(static_cast<Reader &>(file.reader), BODY_SID), 1200u);
    EXPECT_EQ(containerSize(file.reader, BODY_SID), 1200u);
    EXPECT_EQ(containerSize(static_cast<Reader &>(file.reader), 9), 0u);
    EXPECT_FAILURE(InvalidFormat, "lastBodyPartition != 0: Unable to find a partition with the requested BodySID.",
                   containerSize(file.reader, 9));

    // A file without footer ends the last body.
    parts.pop_back();
    OpenFile open(MXFFile(parts, false));
    offsetsForward(open.reader);
    EXPECT_EQ(containerSize(open.reader, BODY_SID), 1200u);

    parts[1].lie = [](Packs::PartitionPack & pack)
    {
        pack.indexByteCount(0x10000);
    };
    OpenFile lying(MXFFile(parts, false));
    offsetsForward(lying.reader);
    EXPECT_FAILURE(InvalidFormat,
                   "Expected body absolute offset of last body partition 0x10268is higher than begin of footer/next "
                   "partition (0x588)",
                   containerSize(lying.reader, BODY_SID));
    EXPECT_FAILURE(InvalidFormat, "Expected body offset of partition 0x10268is higher than the total file size (0x588)",
                   containerSize(static_cast<Reader &>(lying.reader), BODY_SID));
}

TEST(EssenceUtils, ConvertsTimesAndTrackNumbers)
{
    EXPECT_EQ(seconds2EditUnits(Ratio(1001, 30), Ratio(30000, 1001)), Ratio(1000));
    EXPECT_EQ(editUnits2Seconds(Ratio(50), Ratio(25)), Ratio(2));
    EXPECT_EQ(editUnitsConverter(Ratio(48048), Ratio(48000), Ratio(30000, 1001)), Ratio(30));
    EXPECT_FAILURE(InvalidValue, "editRate > 0: Edit rate non-greater than zero.", seconds2EditUnits(1, 0));
    EXPECT_FAILURE(InvalidValue, "currentEditRate > 0: Edit rate non-greater than zero.", editUnitsConverter(1, 0, 1));

    EXPECT_EQ(trackNumber2Key(SOUND), KLV::Key(hex("060E2B34010201010D01030116010100").data()));
    EXPECT_EQ(trackNumber2Key(SYSTEM_ITEM), KLV::Key(hex("060E2B34020501010D01030104010100").data()));
    EXPECT_EQ(key2TrackNumber(trackNumber2Key(0xFEDCBA98)), 0xFEDCBA98);
}

}}}

#include "MXFIO/Reader.h"

#include "IndexTables/IndexTableSegment.h"
#include "KLV/Value.h"
#include "support/Failure.h"
#include "support/OpenFile.h"
#include "support/UseReader.h"

#include <gmock/gmock.h>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Packs::PartitionPack;

// Header; essence; index; essence; footer.
std::vector<FilePart> usualParts()
{
    return {{HEADER, OPEN, chainMetadata(2)},
            {BODY, PartitionPack::CLOSED_INCOMPLETE, {}, essence(12, 80), 1},
            {BODY, PartitionPack::CLOSED_INCOMPLETE, {}, {}, 0, packet(IndexTables::IndexTableSegment::key(), {}), 2},
            {BODY, CLOSED, {}, essence(3, 300), 1},
            {FOOTER, CLOSED, chainMetadata(2)}};
}

std::vector<UInt64> offsetsOf(MXFFile const & file, std::vector<std::size_t> const & parts, UInt64 runIn = 0)
{
    std::vector<UInt64> offsets;
    for (std::size_t part : parts)
        offsets.push_back(file.offset(part) + runIn);
    return offsets;
}

TEST(Reader, WalksThroughPartitionsBothWaysBehindAnyRunIn)
{
    for (UInt64 runIn : {0, 8, 65536})
        for (bool withRIP : {false, true})
        {
            SCOPED_TRACE(testing::Message() << "run-in of " << runIn << ", random index pack: " << withRIP);
            MXFFile const file(usualParts(), withRIP, repeated(runIn, 0x55));
            OpenFile open(file);
            Reader & reader = open.reader;
            EXPECT_EQ(reader.runIn(), nullptr);
            EXPECT_EQ(reader.loadRIP(), withRIP);

            Partition * const header = reader.headerPartition();
            ASSERT_NE(header, nullptr);
            EXPECT_EQ(reader.runInSize(), runIn);
            auto const by = [&](Partition * from, auto const & step)
            {
                return offsetsBy(step(from), step);
            };
            EXPECT_EQ(by(header, [&](Partition * p) { return reader.nextPartition(p, 1); }),
                      offsetsOf(file, {1, 3}, runIn));
            EXPECT_EQ(offsetsForward(reader), offsetsOf(file, {0, 1, 2, 3, 4}, runIn));
            EXPECT_EQ(by(header, [&](Partition * p) { return reader.nextIndexPartition(p, 2); }),
                      offsetsOf(file, {2}, runIn));
            EXPECT_EQ(by(header, [&](Partition * p) { return reader.nextCompletePartition(p); }),
                      offsetsOf(file, {3, 4}, runIn));
            EXPECT_EQ(by(header, [&](Partition * p) { return reader.nextClosedPartition(p); }),
                      offsetsOf(file, {1, 2, 3, 4}, runIn));

            Partition * const footer = reader.lastLoadedPartition();
            EXPECT_EQ(by(footer, [&](Partition * p) { return reader.previousPartition(p); }),
                      offsetsOf(file, {3, 2, 1, 0}, runIn));
            EXPECT_EQ(by(footer, [&](Partition * p) { return reader.previousPartition(p, 1); }),
                      offsetsOf(file, {3, 1}, runIn));
            EXPECT_EQ(by(footer, [&](Partition * p) { return reader.previousIndexPartition(p, 2); }),
                      offsetsOf(file, {2}, runIn));

            for (int i = 0; runIn != 0 && i < 2; ++i)
            {
                Bytes bytes(runIn);
                ASSERT_NE(reader.runIn(), nullptr);
                EXPECT_EQ(reader.runIn()->read(bytes.data(), runIn + 1), runIn);
                EXPECT_EQ(bytes, repeated(runIn, 0x55));
            }
        }
}

TEST(Reader, FindsNoHeaderBehindALongerRunIn)
{
    OpenFile open(MXFFile(usualParts(), true, repeated(65537, 0x55)));
    EXPECT_EQ(open.reader.headerPartition(), nullptr);
    EXPECT_EQ(open.reader.runIn(), nullptr);
    EXPECT_FAILURE(InvalidFormat, "header != 0: No header partition found",
                   open.reader.firstPartitionWithFinalMetadata());
    EXPECT_FAILURE(InvalidValue, "current != 0: Unexpected NULL pointer received on nextPartition call.",
                   open.reader.nextPartition(nullptr));
}

TEST(Reader, PassesOverBodiesUnread)
{
    MXFFile const file({{HEADER}, {BODY, CLOSED, {}, essence(10000, 50), 1}, {FOOTER}});
    OpenFile walked(file);
    EXPECT_EQ(offsetsForward(walked.reader).size(), 3u);
    EXPECT_LT(walked.source.bytesRead(), 10000u * 21);

    OpenFile jumped(file);
    ASSERT_TRUE(jumped.reader.loadRIP());
    EXPECT_EQ(offsetsForward(jumped.reader).size(), 3u);
    EXPECT_LT(jumped.source.bytesRead(), 5000u);
}

TEST(Reader, LoadsARandomIndexPackByTheLastNumberInTheFile)
{
    Bytes const good = MXFFile(usualParts()).bytes();
    UInt64 const length = 16 + 4 + 5 * 12 + 4;
    auto const ending = [&](UInt64 number)
    {
        Bytes bytes = good;
        for (std::size_t i = 1; i <= 4; ++i, number >>= 8)
            bytes[bytes.size() - i] = static_cast<unsigned char>(number);
        return bytes;
    };

    std::tuple<char const *, Bytes, bool> const cases[] = {
        {"as it should be", good, true},
        {"longer than itself", ending(length + 1), false},
        {"too short for a pack", ending(20), false},
        {"as long as the file", ending(good.size()), false},
        {"another packet", ending(length + MXFFile::PACK_SIZE + chainMetadata(2).size()), false},
        {"a stray byte behind it", good + Bytes{0}, false},
        {"half an entry", good.first(good.size() - length + 16) + hex("0A") + repeated(6, 0) + hex("0000001B"), false},
        {"three bytes", repeated(3, 0xFF), false},
        {"nothing", {}, false},
    };
    for (auto const & [name, contents, loaded] : cases)
    {
        SCOPED_TRACE(name);
        OpenFile open(contents);
        EXPECT_EQ(open.reader.loadRIP(), loaded);
        EXPECT_EQ(bool(open.reader.rip()), loaded);
    }
}

TEST(Reader, TakesTheMetadataThatIsMostFinal)
{
    // 'o' is open with metadata, 'c' closed; '-' is closed without.
    std::tuple<char const *, std::size_t, std::size_t> const cases[] = {
        {"ccc", 0, 0}, {"occ", 1, 2}, {"ooc", 2, 2}, {"ooo", 2, 2}, {"oo-", 1, 1},
        {"-oc", 2, 2}, {"o--", 0, 0}, {"---", 0, 2}, {"-c-", 1, 1}, {"co-", 0, 0}};
    for (auto const & [partitions, forward, backward] : cases)
    {
        SCOPED_TRACE(partitions);
        std::vector<FilePart> parts = {{HEADER}, {BODY}, {FOOTER}};
        for (std::size_t i = 0; i < parts.size(); ++i)
        {
            if (partitions[i] == 'o')
                parts[i].status = OPEN;
            if (partitions[i] != '-')
                parts[i].metadata = chainMetadata(1);
        }
        MXFFile const file(parts);
        OpenFile open(file);
        EXPECT_EQ(open.reader.firstPartitionWithFinalMetadata()->partitionAbsoluteOffset(), file.offset(forward));
        EXPECT_EQ(open.reader.backwardFirstPartitionWithFinalMetadata()->partitionAbsoluteOffset(),
                  file.offset(backward));
    }
}

char const * const INVALID_PREVIOUS =
    "previous != current && previous != 0: A Partition has an invalid PreviousPartition value";
char const * const INCONSISTENT = "previous -> partitionPack ().thisPartition () < current -> partitionPack "
                                  "().thisPartition (): Partitions have inconsistent ThisPartition values";
char const * const INVALID_NEXT =
    "next == 0 || next -> partitionPack ().previousPartition () <= current -> partitionPack ().thisPartition (): The "
    "Partition Pack has an invalid PreviousPartition value";

TEST(Reader, ABodyPackMayComeFirst)
{
    MXFFile const file(std::vector<FilePart>{{BODY}, {FOOTER}});
    OpenFile open(file);
    Partition * const first = open.reader.headerPartition();
    EXPECT_EQ(offsetsForward(open.reader), offsetsOf(file, {0, 1}));
    EXPECT_FAILURE(InvalidFormat, INVALID_PREVIOUS, open.reader.previousPartition(first));
}

// What a partition pack claims may end a walk, but never leads in a circle.
TEST(Reader, WalksEndWhateverThePacksSay)
{
    struct Case
    {
        char const * name;
        void (*lie)(PartitionPack &); // of the partition in the middle
        std::vector<std::size_t> forward;
        char const * backwardFailure; // from there, if it isn't followed by 1
    };
    Case const cases[] = {
        {"previous is itself", [](PartitionPack & p) { p.previousPartition(p.thisPartition()); }, {}, INVALID_PREVIOUS},
        {"previous is later", [](PartitionPack & p) { p.previousPartition(p.footerPartition()); }, {}, INCONSISTENT},
        {"previous is behind the end",
         [](PartitionPack & p) { p.previousPartition(~UInt64(0)); },
         {},
         INVALID_PREVIOUS},
        {"previous is none", [](PartitionPack & p) { p.previousPartition(1); }, {0, 1, 2, 3, 4}, nullptr},
        {"this is the first", [](PartitionPack & p) { p.thisPartition(0); }, {}, nullptr},
        {"endless metadata", [](PartitionPack & p) { p.headerByteCount(~UInt64(0)); }, {0, 1, 2}, nullptr},
        {"index that wraps around", [](PartitionPack & p) { p.indexByteCount(~UInt64(99)); }, {0, 1, 2}, nullptr},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        std::vector<FilePart> parts = usualParts();
        parts[2].lie = c.lie;
        MXFFile const file(parts, false);
        OpenFile open(file);
        Reader2 & reader = open.reader;

        if (c.forward.empty())
        {
            EXPECT_FAILURE(InvalidFormat, INVALID_NEXT, offsetsForward(reader));
        }
        else
            EXPECT_EQ(offsetsForward(reader), offsetsOf(file, c.forward));

        reader.lastPartition();
        Partition * const liar = reader.partitionAtOffset(file.offset(2));
        if (c.backwardFailure != nullptr)
        {
            EXPECT_FAILURE(InvalidFormat, c.backwardFailure, reader.previousPartition(liar));
        }
        else
            EXPECT_EQ(reader.previousPartition(liar)->partitionAbsoluteOffset(), file.offset(1));
    }
}

TEST(Reader, ARandomIndexPackThatLiesLosesNothing)
{
    MXFFile const file(usualParts(), false);
    std::vector<UInt64> const all = offsetsOf(file, {0, 1, 2, 3, 4});
    std::vector<std::vector<UInt64>> const packs = {
        {},
        {all[0]},
        {all[0] + 8, all[1] + 8, all[2] + 8, all[3] + 8, all[4] + 8},
        {all[0], all[1] + 1, all[2] - 300, all[3], all[4]},
        {all[0], all[1], all[1] + 200, all[4], ~UInt64(0)},
    };
    for (std::vector<UInt64> const & offsets : packs)
    {
        SCOPED_TRACE(testing::PrintToString(offsets));
        OpenFile open(file);
        ProtectedReader & reader = open.reader;
        Templates::auto_ptr<Packs::RandomIndexPack> rip(new Packs::RandomIndexPack);
        for (UInt64 offset : offsets)
            rip->add(1, offset);
        EXPECT_TRUE(reader.loadRIP(rip));
        EXPECT_FALSE(reader.loadRIP(Templates::auto_ptr<Packs::RandomIndexPack>(new Packs::RandomIndexPack)));
        EXPECT_EQ(offsetsForward(reader), all);
    }
}

TEST(Reader, FilesCutAnywhereGiveWhatIsThere)
{
    Bytes const whole = MXFFile(usualParts()).bytes();
    std::size_t before = 0;
    for (std::size_t size = 0; size <= whole.size(); ++size)
    {
        OpenFile open(whole.first(size));
        std::size_t const partitions = use(open.reader);
        EXPECT_GE(partitions, before) << "of " << size << " bytes";
        EXPECT_LT(open.source.bytesRead(), 20 * size + 1000) << "of " << size << " bytes";
        before = partitions;
    }
    EXPECT_EQ(before, 5u);
}

}}}

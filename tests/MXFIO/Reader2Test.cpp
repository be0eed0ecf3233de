#include "MXFIO/Reader2.h"

#include "support/Failure.h"
#include "support/OpenFile.h"

#include <gmock/gmock.h>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Packs::PartitionPack;

// A file of header, body and footer, with `behind` bytes of fill in the footer.
MXFFile fileWith(UInt64 footerOffset, bool withRIP, UInt64 behind = 0, Bytes const & runIn = {})
{
    FilePart header{HEADER, OPEN, chainMetadata(1)};
    header.lie = [footerOffset](PartitionPack & pack)
    {
        pack.footerPartition(footerOffset);
    };
    return MXFFile({header,
                    {BODY, CLOSED, {}, essence(40, 1000), 1},
                    {FOOTER, CLOSED, chainMetadata(1), behind ? fill(behind) : Bytes()}},
                   withRIP, runIn);
}

TEST(Reader2, FindsTheFooterByEachRoad)
{
    UInt64 const footer = fileWith(0, false).offset(2);
    std::tuple<char const *, MXFFile, bool> const cases[] = {
        {"footer offset", fileWith(footer, false), true},
        {"footer offset behind a run-in", fileWith(footer, false, 0, repeated(9, 0)), true},
        {"no offset, random index pack", fileWith(0, true), true},
        {"no offset, no random index pack", fileWith(0, false), true},
        {"no offset behind a run-in", fileWith(0, false, 0, repeated(9, 0)), true},
        {"offset behind the end", fileWith(UInt64(1) << 40, false), true},
        {"offset of another partition", fileWith(fileWith(0, false).offset(1), true), false},
        {"offset of no partition", fileWith(footer + 1, false), false},
    };
    for (auto const & [name, file, footerFound] : cases)
        for (bool loaded : {false, true})
        {
            SCOPED_TRACE(name);
            OpenFile open(file);
            if (loaded)
                open.reader.loadRIP();
            Partition * const found = open.reader.footerPartition();
            EXPECT_EQ(found != nullptr, footerFound);

            Partition * const last = open.reader.lastPartition();
            ASSERT_NE(last, nullptr);
            EXPECT_EQ(last->partitionPack().thisPartition(), footer);
            EXPECT_EQ(open.reader.footerPartition(), last); // known by now
        }
}

// The key lies across a border of the search's steps, or blocks of steps away.
TEST(Reader2, SearchesBackwardInSteps)
{
    UInt64 const ends = MXFFile::PACK_SIZE + chainMetadata(1).size();
    for (UInt64 steps : {1, 2, 10, 11, 60})
        for (UInt64 fromBorder = 0; fromBorder <= 32; ++fromBorder)
        {
            UInt64 const distance = steps * 6144 + 16 - fromBorder;
            MXFFile const file = fileWith(0, false, distance - ends);
            OpenFile open(file);
            Partition * const footer = open.reader.footerPartition();
            ASSERT_NE(footer, nullptr) << distance << " bytes from the end";
            EXPECT_EQ(footer->partitionAbsoluteOffset(), file.offset(2));
            EXPECT_EQ(footer->metadataAbsoluteOffset(), file.offset(2) + MXFFile::PACK_SIZE);
        }
}

TEST(Reader2, KnowsWhenNoFooterCanBe)
{
    FilePart const header = {HEADER};
    FilePart const body = {BODY, CLOSED, {}, essence(40, 1000), 1};
    OpenFile open(MXFFile({header, body}, false));
    EXPECT_EQ(open.reader.footerPartition(), nullptr);
    EXPECT_LT(open.source.bytesRead(), 100000u);
    EXPECT_EQ(open.reader.lastPartition()->partitionPack().partitionKind(), BODY);

    for (Bytes const & bytes : {Bytes(), repeated(20000, 6), essence(40, 1000)})
    {
        OpenFile none(bytes);
        EXPECT_EQ(none.reader.footerPartition(), nullptr);
        EXPECT_FAILURE(InvalidFormat, "partition != 0: No partition found", none.reader.lastPartition());
        EXPECT_FAILURE(InvalidFormat, "header != 0: No header partition found",
                       none.reader.backwardFirstPartitionWithFinalMetadata());
        EXPECT_FALSE(none.reader.loadRipFromFooter());
    }
}

TEST(Reader2, TellsWhichRoadIsWrong)
{
    MXFFile const file = fileWith(1, false);
    OpenFile open(file);
    EXPECT_FAILURE(InvalidFormat, "Footer not found where indicated in header partition",
                   open.reader.lastPartitionFromHeaderFooterOffset());

    Templates::auto_ptr<Packs::RandomIndexPack> rip(new Packs::RandomIndexPack);
    rip->add(1, file.offset(1));
    open.reader.loadRIP(rip);
    EXPECT_EQ(open.reader.lastPartitionFromRIP()->partitionAbsoluteOffset(), file.offset(1)); // read just now
    EXPECT_FAILURE(InvalidFormat,
                   "partition -> partitionPack ().partitionKind () == PartitionPack::FOOTER_PARTITION: Last Partition "
                   "indicated by RIP is not a Footer Partition",
                   open.reader.lastPartition());
}

TEST(Reader2, FindsPartitionsWhereTheyAreSaidToBe)
{
    MXFFile const file = fileWith(0, false, 0, repeated(30, 0));
    OpenFile open(file);
    open.reader.headerPartition();
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(open.reader.partitionAtOffset(file.offset(1))->partitionAbsoluteOffset(), file.offset(1) + 30);
    EXPECT_EQ(open.reader.partitionAtOffset(file.offset(1) + 1), nullptr);
    EXPECT_EQ(open.reader.partitionAtOffset(~UInt64(0)), nullptr);

    UInt64 const footerSize = file.bytes().size() - 30 - file.offset(2);
    EXPECT_EQ(open.reader.lastPartition(footerSize - 1), nullptr);
    EXPECT_EQ(open.reader.lastPartition(footerSize)->partitionPack().thisPartition(), file.offset(2));
    EXPECT_EQ(open.reader.lastPartition(~UInt64(0))->partitionPack().thisPartition(), file.offset(2));
    EXPECT_EQ(open.reader.lastPartition(0), nullptr);
}

TEST(Reader2, MakesARandomIndexPackFromTheFooter)
{
    for (UInt64 runIn : {0, 30})
    {
        MXFFile const file = fileWith(0, false, 0, repeated(runIn, 0));
        OpenFile open(file);
        ASSERT_TRUE(open.reader.loadRipFromFooter());
        EXPECT_THAT(open.reader.rip()->offsetIndexedMap(),
                    testing::ElementsAre(testing::Pair(runIn, 0u), testing::Pair(file.offset(1) + runIn, 1u),
                                         testing::Pair(file.offset(2) + runIn, 0u)));
    }
}

}}}

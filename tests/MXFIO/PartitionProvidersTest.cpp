#include "MXFIO/BasicPartitionProvider.h"
#include "MXFIO/EstimatePartitionProvider.h"
#include "MXFIO/FixedEditUnitCountPartitionProvider.h"
#include "MXFIO/PartitionUtils.h"
#include "MXFIO/StreamingPartitionProvider.h"
#include "support/Failure.h"
#include "support/GrowingSource.h"
#include "support/OpenFile.h"

#include <gmock/gmock.h>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Packs::PartitionPack;
using Rip = std::vector<std::pair<unsigned int, UInt64>>;

UInt64 const PIECE = 1020; // bytes of a packet
unsigned int const SID = 1;
unsigned int const OTHER_SID = 5;

// A profile with a number of edit units per partition.
class Profile : public ContentStorageProfile
{
public:
    explicit Profile(unsigned int editUnits) : editUnits_(editUnits) {}

    KnowledgeStatus editUnitsPerPartition(unsigned int * editUnits) override
    {
        *editUnits = editUnits_;
        return KNOWLEDGE_KNOWN;
    }
    KnowledgeStatus editUnitByteCount(unsigned int *) override { return KNOWLEDGE_UNKNOWN; }
    KnowledgeStatus duration(Int64 *) override { return KNOWLEDGE_UNKNOWN; }
    KnowledgeStatus isClipWrapped(bool *) override { return KNOWLEDGE_UNKNOWN; }

    static Templates::SharedPtr<ContentStorageProfile> of(unsigned int editUnits)
    {
        return Templates::SharedPtr<ContentStorageProfile>(new Profile(editUnits));
    }

private:
    unsigned int editUnits_;
};

FilePart body(unsigned int packets, UInt64 bodyOffset, unsigned int bodySID = SID)
{
    FilePart part{BODY, CLOSED, {}, essence(packets, PIECE - 20), bodySID};
    part.lie = [=](PartitionPack & pack)
    {
        pack.bodyOffset(bodyOffset);
    };
    return part;
}

// A container in four partitions, of different sizes, with others between.
std::vector<FilePart> const PARTS = {FilePart{HEADER},   body(2, 0),         body(3, 0, OTHER_SID),
                                     body(1, 2 * PIECE), body(4, 3 * PIECE), body(3, 3 * PIECE, OTHER_SID),
                                     body(2, 7 * PIECE), FilePart{FOOTER}};

// Bytes of the container and the part that holds each; 0 for none.
std::pair<UInt64, std::size_t> const PLACES[] = {
    {0, 1},         {2 * PIECE - 1, 1}, {2 * PIECE, 3},     {3 * PIECE, 4}, {5 * PIECE, 4},
    {7 * PIECE, 6}, {9 * PIECE - 1, 6}, {9 * PIECE + 1, 0}, {~UInt64(0), 0}};

TEST(PartitionProviders, AgreeOnEachPlace)
{
    for (UInt64 runIn : {0, 77})
        for (bool withRIP : {true, false})
        {
            MXFFile const file(PARTS, withRIP, repeated(runIn, 0));
            OpenFile open(file);
            BytesSource source(file.bytes());
            Reader plain(source, Schema().dictionary(), SEARCH_LIMIT);
            ASSERT_TRUE(open.reader.loadRipFromFooter());
            open.reader.lastPartition();

            std::unique_ptr<PartitionProvider> const providers[] = {
                std::make_unique<BasicPartitionProvider>(plain, SID, false),
                std::make_unique<BasicPartitionProvider>(open.reader, SID, false),
                std::make_unique<BasicPartitionProvider>(open.reader, SID, true),
                std::make_unique<EstimatePartitionProvider>(open.reader, SID),
                std::make_unique<FixedEditUnitCountPartitionProvider>(open.reader, SID, Profile::of(2)),
                std::make_unique<FixedEditUnitCountPartitionProvider>(open.reader, SID, Profile::of(1)),
                std::make_unique<FixedEditUnitCountPartitionProvider>(open.reader, SID, Profile::of(4000000)),
                std::make_unique<StreamingPartitionProvider>(open.reader, SID),
            };
            for (std::size_t i = 0; i < std::size(providers); ++i)
                for (auto const & [bodyOffset, part] : PLACES)
                {
                    auto const editUnit = static_cast<Int64>(bodyOffset / PIECE);
                    Partition const * const found = providers[i]->partitionContaining(bodyOffset, editUnit);
                    EXPECT_EQ(found ? found->partitionAbsoluteOffset() - runIn : 0, part ? file.offset(part) : 0)
                        << "provider " << i << ", byte " << bodyOffset << ", run-in " << runIn;
                }

            // The walks count the end in.
            EXPECT_TRUE(providers[0]->partitionContaining(9 * PIECE, 0));
            EXPECT_TRUE(providers[1]->partitionContaining(9 * PIECE, 0));
            EXPECT_FALSE(providers[3]->partitionContaining(9 * PIECE, 0));
            EXPECT_FALSE(providers[7]->partitionContaining(9 * PIECE, 0));
        }
}

TEST(PartitionProviders, FindNothingOfAnAbsentContainer)
{
    OpenFile open{MXFFile(PARTS)};
    open.reader.loadRIP();
    FixedEditUnitCountPartitionProvider fixed(open.reader, 9, Profile::of(1)); // none in the pack: a walk
    StreamingPartitionProvider streaming(open.reader, 9);
    EXPECT_EQ(partitionContainingRelativeOffset(static_cast<Reader &>(open.reader), 9, 0), nullptr);
    EXPECT_EQ(partitionContainingRelativeOffset(open.reader, 9, 0, false), nullptr);
    EXPECT_EQ(fixed.partitionContaining(0, 0), nullptr);
    EXPECT_EQ(streaming.partitionContaining(0, 0), nullptr);
    EXPECT_FAILURE(InvalidFormat, "partitionOffsets_.size () > 1: No partition for this bodySID was found in RIP.",
                   EstimatePartitionProvider(open.reader, 9));
    EXPECT_FAILURE(InvalidValue,
                   "editUnitsPerPartition_ != 0: ContentStorageProfile indicates '0' as the editUnitsPerPartition "
                   "value.",
                   FixedEditUnitCountPartitionProvider(open.reader, SID, Profile::of(0)));

    OpenFile empty((Bytes()));
    EXPECT_FAILURE(InvalidFormat, "currentPartition != 0: Could not find header partition.",
                   partitionContainingRelativeOffset(static_cast<Reader &>(empty.reader), SID, 0));
    EXPECT_FAILURE(InvalidFormat, "currentPartition != 0: Could not find footer partition.",
                   partitionContainingRelativeOffset(empty.reader, SID, 0, false));
    EXPECT_EQ(StreamingPartitionProvider(empty.reader, SID).partitionContaining(0, 0), nullptr);
}

TEST(PartitionProviders, TellHowLongABodyIs)
{
    MXFFile const file(PARTS, false, repeated(30, 0));
    OpenFile open(file);
    Reader & reader = open.reader;
    open.reader.headerPartition();
    Partition * const partition = open.reader.partitionAtOffset(file.offset(4));
    EXPECT_EQ(bodyLength(reader, partition, SID), 4 * PIECE);
    EXPECT_EQ(bodyLength(reader, partition, OTHER_SID), 0u);
    EXPECT_EQ(bodyLength(reader, nullptr, SID), 0u);

    std::vector<FilePart> parts(PARTS.begin(), PARTS.begin() + 2);
    OpenFile cut{MXFFile(parts, false)};
    Partition * const last = cut.reader.nextPartition(cut.reader.headerPartition(), SID);
    EXPECT_FAILURE(InvalidFormat,
                   "partitionAfter != 0: File has no footer. No partition found after the last body partition for "
                   "this bodySID.",
                   bodyLength(cut.reader, last, SID));
    EXPECT_EQ(partitionContainingRelativeOffset(cut.reader, SID, PIECE, true), last) << "it reaches to the end";

    parts = PARTS;
    parts[1].lie = [](PartitionPack & pack)
    {
        pack.headerByteCount(0x10000);
    };
    OpenFile lying{MXFFile(parts)};
    lying.reader.loadRIP();
    Partition * const early = lying.reader.nextPartition(lying.reader.headerPartition(), SID);
    EXPECT_FAILURE(InvalidFormat,
                   "Expected body absolute offset of last body partition 0x100d8is higher than begin of footer/next "
                   "partition (0x8d0)",
                   bodyLength(lying.reader, early, SID));
}

// A random index pack with entries of our own.
void loadRIP(OpenFile & open, Rip const & entries)
{
    Templates::auto_ptr<Packs::RandomIndexPack> rip(new Packs::RandomIndexPack);
    for (auto const & [sid, offset] : entries)
        rip->add(sid, offset);
    open.reader.loadRIP(rip);
}

TEST(PartitionProviders, SurviveARandomIndexPackThatLies)
{
    MXFFile const file(PARTS, false);
    auto const at = [&](std::size_t part)
    {
        return file.offset(part);
    };
    char const NOWHERE[] = "partition != 0: Unable to find a partition in an offset indicated in RIP.";
    char const BROKEN[] = "next == 0 || next -> partitionPack ().previousPartition () <= current -> partitionPack "
                          "().thisPartition (): The Partition Pack has an invalid PreviousPartition value";
    char const FOREIGN[] = "partition -> partitionPack ().bodySID () == bodySID_: Partition offset (0x8d0) in RIP "
                           "points to PartitionPack of unexpected bodySID (5 instead of 1)";
    struct Case
    {
        char const * name;
        Rip entries;
        UInt64 bodyOffset;
        std::size_t part;
        char const * failure;
    };
    Case const cases[] = {
        {"one entry", {{SID, at(4)}}, 4 * PIECE, 4, nullptr},
        {"one entry, before it", {{SID, at(4)}}, 0, 0, nullptr},
        {"nowhere", {{SID, at(1)}, {SID, at(3) + 1}, {SID, at(4)}}, 2 * PIECE, 0, NOWHERE},
        {"behind the end", {{SID, at(1)}, {SID, UInt64(1) << 50}}, 9 * PIECE, 0, NOWHERE},
        {"another container first",
         {{SID, at(2)}, {SID, at(4)}, {OTHER_SID, at(5)}, {SID, at(6)}},
         4 * PIECE,
         4,
         nullptr},
        {"another container last", {{SID, at(1)}, {SID, at(4)}, {SID, at(5)}}, 9 * PIECE, 0, nullptr},
        {"another container between", {{SID, at(1)}, {SID, at(2)}, {SID, at(4)}}, 2 * PIECE, 0, FOREIGN},
        {"nothing else", {{SID, at(2)}, {SID, at(5)}}, 0, 0, nullptr},
        {"one is missing", {{SID, at(1)}, {SID, at(4)}, {SID, at(6)}}, 2 * PIECE, 0, BROKEN},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        OpenFile open(file);
        open.reader.headerPartition();
        loadRIP(open, c.entries);
        FixedEditUnitCountPartitionProvider provider(open.reader, SID, Profile::of(2));
        auto const find = [&]
        {
            return provider.partitionContaining(c.bodyOffset, static_cast<Int64>(c.bodyOffset / PIECE));
        };
        if (c.failure)
        {
            EXPECT_FAILURE(InvalidFormat, c.failure, find());
        }
        else
        {
            Partition const * found = nullptr;
            EXPECT_NO_THROW(found = find());
            EXPECT_EQ(found ? found->partitionAbsoluteOffset() : 0, c.part ? at(c.part) : 0);
        }
    }
}

TEST(EstimatePartitionProvider, GuessesBetterWithEachLook)
{
    std::vector<FilePart> parts = {{HEADER}};
    for (unsigned int i = 0; i < 100; ++i)
        parts.push_back(body(2, i * 2 * PIECE));
    parts.push_back(body(0, 200 * PIECE)); // without body
    parts.push_back(body(1, 200 * PIECE));
    parts.push_back({FOOTER});
    OpenFile open{MXFFile(parts)};
    open.reader.loadRIP();
    EstimatePartitionProvider provider(open.reader, SID);
    EXPECT_EQ(provider.firstTry(150 * PIECE, 0), 75u) << "by the last partition but those at the end";
    EXPECT_EQ(provider.partitionContaining(150 * PIECE, 0)->partitionPack().bodyOffset(), 150 * PIECE);

    Partition * const shortest = provider.partitionContaining(200 * PIECE, 0);
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(provider.firstTry(200 * PIECE, 0), 200 * 4 / 5u) << "of 2, 2, 0 and 1, each once";
        provider.learned(shortest);
    }

    OpenFile hollow{MXFFile({{HEADER}, body(0, 0), body(0, 0), {FOOTER}})};
    hollow.reader.loadRIP();
    EXPECT_EQ(EstimatePartitionProvider(hollow.reader, SID).partitionContaining(5, 0), nullptr);
}

TEST(StreamingPartitionProvider, KnowsWhatItsReaderHasMet)
{
    MXFFile const file(PARTS, true, repeated(9, 0));
    GrowingSource source(file.bytes(), file.offset(3) + 9 + MXFFile::PACK_SIZE + 500);
    Reader2 reader(source, Schema().dictionary(), SEARCH_LIMIT);
    StreamingPartitionProvider provider(reader, SID);
    EXPECT_EQ(provider.partitionContaining(0, 0), nullptr) << "nothing was met";

    reader.headerPartition();
    Partition * const first = reader.nextPartition(reader.headerPartition(), SID);
    EXPECT_EQ(provider.partitionContaining(2 * PIECE - 1, 0), first);
    EXPECT_EQ(provider.partitionContaining(9 * PIECE, 0), nullptr);

    Partition * const second = reader.nextPartition(first, SID);
    EXPECT_EQ(provider.partitionContaining(2 * PIECE - 1, 0), first);
    EXPECT_EQ(provider.partitionContaining(2 * PIECE + 499, 0), second);
    EXPECT_EQ(provider.partitionContaining(2 * PIECE + 500, 0), nullptr) << "yet to be written";

    source.writeUpTo(file.bytes().size());
    source.refresh();
    EXPECT_EQ(provider.partitionContaining(2 * PIECE + 500, 0), second);
    reader.lastPartition();
    EXPECT_EQ(provider.partitionContaining(8 * PIECE, 0)->partitionPack().bodyOffset(), 7 * PIECE);
    EXPECT_EQ(provider.partitionContaining(3 * PIECE, 0)->partitionPack().bodyOffset(), 3 * PIECE);
    EXPECT_EQ(provider.partitionContaining(9 * PIECE, 0), nullptr);
}

}}}

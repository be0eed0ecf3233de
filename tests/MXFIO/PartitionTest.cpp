#include "MXFIO/Partition.h"

#include "IndexTables/IndexTableSegment.h"
#include "KLV/KeyPredicates.h"
#include "MXFIO/PartitionListener.h"
#include "Utils/NumberText.h"
#include "support/Failure.h"
#include "support/OpenFile.h"

#include <gmock/gmock.h>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Packs::PartitionPack;

class Log : public PartitionListener
{
public:
    explicit Log(std::string & log) : log_(log) {}

    void primerPackLoaded(Packs::PrimerPack & primer) override { log_ += primer.count() > 0 ? "primer " : "?"; }
    void metadataCreated(Metadata::PartitionMetadata & metadata) override
    {
        log_ += metadata.size() == 0 ? "created " : "?";
    }
    void unknownPacketRead(KLV::Packet & packet) override
    {
        log_ += KLV::isFillItem(packet.key()) ? "fill " : "unknown ";
        unsigned char byte;
        packet.value().read(&byte, 1);
    }

private:
    std::string & log_;
};

TEST(Partition, LoadsItsMetadataOnce)
{
    Bytes const brokenSet = packet(nodeKey(), hex("3C0A 00"));
    Bytes const metadata = chainMetadata(3) + fill(40) + brokenSet + packet(essenceKey(), {1, 2}) + fill(400000) +
                           packet(strangeKey(), {});
    MXFFile const file({{HEADER, CLOSED, metadata, essence(2, 10), 1, {}, 0, fill(30)}});
    OpenFile open(file);
    Partition & header = *open.reader.headerPartition();
    EXPECT_EQ(header.metadataAbsoluteOffset(), MXFFile::PACK_SIZE + 30);
    EXPECT_EQ(header.bodyAbsoluteOffset(), header.metadataAbsoluteOffset() + metadata.size());

    std::string log;
    header.setPartitionListener(Templates::SharedPtr<PartitionListener>(new Log(log)));
    auto const loaded = header.metadata();
    EXPECT_EQ(loaded->size(), 5u); // Preface, three nodes and the one that isn't known
    EXPECT_EQ(log, "primer created fill unknown fill ");
    EXPECT_LT(open.source.bytesRead(), 300000u) << "fill is passed over";
    EXPECT_EQ(open.source.absoluteOffset(), header.bodyAbsoluteOffset());
    EXPECT_EQ(header.metadata(), loaded);
    EXPECT_EQ(log, "primer created fill unknown fill ");

    OpenFile without(MXFFile(std::vector<FilePart>{{HEADER}}));
    Partition & empty = *without.reader.headerPartition();
    without.source.seek(3);
    EXPECT_FALSE(empty.metadata());
    EXPECT_EQ(without.source.absoluteOffset(), 3u);
}

TEST(Partition, SaysWhatIsWrongWithMetadata)
{
    Bytes const good = chainMetadata(2);
    auto const endless = [](PartitionPack & pack)
    {
        pack.headerByteCount(~UInt64(0));
    };

    OpenFile noPrimer(MXFFile({{HEADER, CLOSED, packet(nodeKey(), {})}}, false, repeated(10, 0)));
    EXPECT_FAILURE(InvalidFormat, "This partition (0xa) does not have a primer pack at the beginning of the metadata.",
                   noPrimer.reader.headerPartition()->metadata());

    OpenFile nothing(MXFFile({{HEADER, CLOSED, {}, {}, 0, {}, 0, {}, endless}}, false));
    for (int i = 0; i < 2; ++i)
        EXPECT_FAILURE(InvalidFormat, "Expected Primer Pack", nothing.reader.headerPartition()->metadata());

    // What lies ahead of the failure is there for those who ask again.
    OpenFile cut(MXFFile({{HEADER, CLOSED, good, {}, 0, {}, 0, {}, endless}}, false));
    EXPECT_FAILURE(InvalidFormat, "Expected Primer Pack", cut.reader.headerPartition()->metadata());
    EXPECT_EQ(cut.reader.headerPartition()->metadata()->size(), 3u);

    OpenFile garbage(MXFFile({{HEADER, CLOSED, good + repeated(SEARCH_LIMIT + 1, 0) + good}}, false));
    EXPECT_THROW(garbage.reader.headerPartition()->metadata(), Exceptions::KeyNotFound);
}

Bytes segment(unsigned char number)
{
    return packet(IndexTables::IndexTableSegment::key(), repeated(number, number));
}

// The lengths of the segments that come one after another.
std::vector<UInt64> segmentsOf(Partition & partition)
{
    std::vector<UInt64> lengths;
    while (auto const packet = partition.nextIndexTableSegmentsKLV())
        lengths.push_back(packet->length());
    return lengths;
}

TEST(Partition, HandsOutIndexTableSegments)
{
    Bytes oldSegment = segment(2);
    oldSegment[14] = 0;
    Bytes overrun = segment(3);
    overrun[19] = 90;
    Bytes fillOverrun = fill(30);
    fillOverrun[19] = 90;

    std::tuple<char const *, Bytes, std::vector<UInt64>> const cases[] = {
        {"none", {}, {}},
        {"with fill between", segment(1) + fill(20) + oldSegment + fill(50), {1, 2}},
        {"something else between", segment(1) + packet(nodeKey(), {}) + segment(2), {1}},
        {"a segment longer than the index", segment(1) + overrun, {1, 90}},
        {"fill longer than the index", segment(1) + fillOverrun, {1}},
    };
    for (auto const & [name, index, lengths] : cases)
    {
        SCOPED_TRACE(name);
        OpenFile open(MXFFile({{HEADER, CLOSED, chainMetadata(1), essence(5, 100), 1, index, 2}, {BODY}}));
        Partition & partition = *open.reader.headerPartition();
        EXPECT_EQ(segmentsOf(partition), lengths);
        EXPECT_FALSE(partition.nextIndexTableSegmentsKLV());

        // From elsewhere it starts anew, and so it does on demand.
        partition.metadata();
        partition.nextBodyKLV(0);
        EXPECT_EQ(segmentsOf(partition), lengths);
        partition.rewind();
        EXPECT_EQ(segmentsOf(partition), lengths);
    }
}

std::vector<UInt64> bodyOf(Partition & partition)
{
    std::vector<UInt64> offsets;
    while (auto const packet = partition.nextBodyKLV(4096))
        offsets.push_back(packet->keyAbsoluteOffset());
    return offsets;
}

TEST(Partition, HandsOutThePacketsOfItsBody)
{
    MXFFile const file({{HEADER, CLOSED, chainMetadata(1), essence(2, 80) + fill(20) + essence(1, 80), 1},
                        {BODY, CLOSED, {}, essence(2, 80), 1},
                        {BODY}},
                       true, repeated(8, 0));
    OpenFile open(file);
    Partition & header = *open.reader.headerPartition();
    UInt64 const start = header.bodyAbsoluteOffset();
    std::vector<UInt64> const packets = {start, start + 100, start + 200, start + 220};
    EXPECT_EQ(bodyOf(header), packets);
    EXPECT_TRUE(header.partitionEnded());
    EXPECT_FALSE(header.nextBodyKLV(4096)) << "the end stays the end";

    // The partition met is known, and is next without a search.
    UInt64 const bytesRead = open.source.bytesRead();
    Partition & body = *open.reader.nextPartition(&header);
    EXPECT_EQ(open.source.bytesRead(), bytesRead);
    EXPECT_EQ(body.partitionAbsoluteOffset(), file.offset(1) + 8);

    header.gotoBodyRelativePosition(200);
    EXPECT_FALSE(header.partitionEnded());
    EXPECT_EQ(bodyOf(header), std::vector<UInt64>(packets.begin() + 2, packets.end()));
    body.gotoBodyRelativePosition(320 + 100);
    EXPECT_EQ(bodyOf(body).size(), 1u);
    std::string const tooEarly = "Trying to seek to 0x13f but partition (0x" +
                                 std::string(Utils::hexadecimal(file.offset(1)).c_str()) + ") body starts at 140";
    EXPECT_FAILURE(InvalidPosition, tooEarly.c_str(), body.gotoBodyRelativePosition(319));

    Partition & last = *open.reader.nextPartition(&body);
    open.source.seek(5);
    EXPECT_FALSE(last.nextBodyKLV(4096));
    EXPECT_EQ(open.source.absoluteOffset(), 5u);
    EXPECT_FALSE(last.partitionEnded());
}

// Many packs may claim what one partition has, but it is read once.
TEST(Partition, LeavesOthersWhatIsTheirs)
{
    std::vector<FilePart> parts = {{HEADER, CLOSED, chainMetadata(1)},
                                   {BODY},
                                   {BODY, CLOSED, chainMetadata(2), essence(3, 80), 1, segment(1) + segment(2), 2},
                                   {FOOTER}};
    UInt64 const index = MXFFile(parts).offset(2) + MXFFile::PACK_SIZE + chainMetadata(2).size();
    for (FilePart * part : {&parts[0], &parts[1]})
        part->lie = [=](PartitionPack & pack)
        {
            pack.headerByteCount(index - pack.thisPartition() - MXFFile::PACK_SIZE);
            pack.indexByteCount((segment(1) + segment(2)).size());
            pack.indexSID(2);
            pack.bodySID(1);
        };
    MXFFile const file(parts);

    for (bool withRIP : {true, false})
    {
        SCOPED_TRACE(withRIP);
        OpenFile open(file);
        if (withRIP)
            open.reader.loadRIP();
        else
            offsetsBy(open.reader.lastPartition(), [&](Partition * p) { return open.reader.previousPartition(p); });
        EXPECT_EQ(offsetsForward(open.reader).size(), 4u);

        for (std::size_t i : {0, 1, 2})
        {
            Partition & partition = *open.reader.partitionAtOffset(file.offset(i));
            partition.rewind();
            EXPECT_EQ(segmentsOf(partition).size(), i == 2 ? 2u : 0u);
            EXPECT_EQ(bodyOf(partition).size(), i == 2 ? 3u : 0u);
            EXPECT_TRUE(partition.partitionEnded());
        }
        EXPECT_EQ(open.reader.headerPartition()->metadata()->size(), 2u);
    }
}

}}}

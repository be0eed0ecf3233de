// Counts what readers take from the system, below all buffers.

#include "DataIO/File/FileDataSource.h"
#include "IndexTables/IndexTableSegment.h"
#include "support/OpenFile.h"
#include "support/ScratchFolder.h"

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Packs::PartitionPack;

// What this process has read, by the system's own count.
struct Reads
{
    static Reads now()
    {
        Reads reads;
        std::ifstream file("/proc/self/io");
        for (std::string name; file >> name;)
            file >> (name == "rchar:" ? reads.bytes : name == "syscr:" ? reads.calls : reads.other);
        return reads;
    }

    UInt64 bytes = 0;
    UInt64 calls = 0;
    UInt64 other = 0;
};

// What an operation reads; a count reads a file too.
Reads readsOf(std::function<void()> const & operation)
{
    Reads const first = Reads::now();
    Reads const before = Reads::now();
    operation();
    Reads const after = Reads::now();

    Reads reads;
    reads.calls = after.calls - before.calls - (before.calls - first.calls);
    reads.bytes = after.bytes - before.bytes - (before.bytes - first.bytes);
    return reads;
}

#define VANTRY_NEEDS_READ_COUNT() \
    if (Reads::now().calls == 0)  \
    GTEST_SKIP() << "the system doesn't count reads"

// A file on disk that has just been opened.
class OpenedFile
{
public:
    explicit OpenedFile(MXFFile const & file) :
        source_(written(file).c_str(), -1), reader(source_, Schema().dictionary(), SEARCH_LIMIT)
    {
    }

private:
    Templates::wstring written(MXFFile const & file) const
    {
        folder_.write("file.mxf", file.bytes());
        return Platform::stringToWstring((folder_.path() / "file.mxf").c_str());
    }

    ScratchFolder const folder_;
    DataIO::File::FileDataSource source_;

public:
    Reader2 reader;
};

TEST(ReadCount, OpeningTakesFewReadsWhateverTheFileOffers)
{
    VANTRY_NEEDS_READ_COUNT();
    Bytes const metadata = chainMetadata(2000);
    ASSERT_GT(metadata.size(), 100000u);
    Bytes const segment = packet(IndexTables::IndexTableSegment::key(), repeated(3000, 0));

    for (bool isOpen : {false, true})
        for (bool withRIP : {false, true})
        {
            SCOPED_TRACE(testing::Message() << "open header: " << isOpen << ", random index pack: " << withRIP);
            FilePart header = {HEADER, CLOSED, metadata};
            if (isOpen)
            {
                header.status = OPEN;
                header.lie = [](PartitionPack & pack)
                {
                    pack.footerPartition(0);
                };
            }
            FilePart body;
            body.body = essence(200, 10000);
            body.bodySID = 1;
            FilePart footer = {FOOTER, CLOSED, metadata};
            footer.index = segment;
            footer.indexSID = 2;

            OpenedFile file(MXFFile({header, body, footer}, withRIP));
            Reads const reads = readsOf(
                [&]
                {
                    file.reader.loadRIP();
                    Partition * const final = file.reader.backwardFirstPartitionWithFinalMetadata();
                    EXPECT_EQ(final->partitionPack().partitionKind(), (isOpen ? footer : header).kind);
                    EXPECT_EQ(final->metadata()->size(), 2001u);
                    EXPECT_TRUE(file.reader.footerPartition()->nextIndexTableSegmentsKLV());
                });
            EXPECT_LE(reads.calls, 6u);
            EXPECT_LE(reads.bytes, 524288u);
        }
}

TEST(ReadCount, PlayingThroughReadsEachByteOnce)
{
    VANTRY_NEEDS_READ_COUNT();
    FilePart body;
    body.body = essence(3000, 100);
    body.bodySID = 1;
    MXFFile const content({{HEADER}, body, body, {FOOTER}});

    OpenedFile file(content);
    unsigned int packets = 0;
    Reads const reads = readsOf(
        [&]
        {
            unsigned char value[100];
            for (Partition * p = file.reader.headerPartition(); p != nullptr; p = file.reader.nextPartition(p))
                while (auto const packet = p->nextBodyKLV(4096))
                    packets += packet->value().read(value, 100) == 100;
        });
    EXPECT_EQ(packets, 6000u);
    EXPECT_LE(reads.calls, content.bytes().size() / 65536 + 1);
    EXPECT_LE(reads.bytes, content.bytes().size());
}

}}}

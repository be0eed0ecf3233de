// Reads real files of many makers from both ends.

#include "MXFIO/SequentialReader.h"
#include "support/FileBytes.h"
#include "support/OpenFile.h"
#include "support/Samples.h"
#include "support/UseReader.h"

#include <map>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;

// Every place at which a partition pack's key stands, with a status that
// there is.
std::vector<UInt64> packsIn(Bytes const & file)
{
    Bytes const key = hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01");
    std::vector<UInt64> offsets;
    auto at = file.begin();
    while ((at = std::search(at, file.end(), key.begin(), key.end())) != file.end())
    {
        bool const isPartition = at[13] >= 2 && at[13] <= 4 && at[14] != 0;
        if (isPartition)
            offsets.push_back(static_cast<UInt64>(at - file.begin()));
        ++at;
    }
    return offsets;
}

TEST(RealFiles, AreWalkedWithAndWithoutRandomIndexPack)
{
    VANTRY_NEEDS_SAMPLES();
    for (std::filesystem::path const & path : samples())
    {
        SCOPED_TRACE(path);
        Bytes const bytes = readFile(path);
        std::vector<UInt64> const packs = packsIn(bytes);
        for (bool withRIP : {false, true})
        {
            OpenFile open(bytes);
            if (withRIP)
                open.reader.loadRIP();
            EXPECT_EQ(offsetsForward(open.reader), packs);
            if (packs.empty())
                continue;

            EXPECT_EQ(OpenFile(bytes).reader.lastPartition()->partitionAbsoluteOffset(), packs.back());
            EXPECT_GT(open.reader.firstPartitionWithFinalMetadata()->metadata()->size(), 10u);
        }
    }
}

class Counter : public SequentialReader
{
public:
    using SequentialReader::SequentialReader;
    std::size_t partitions = 0;

private:
    void handlePartition(Templates::auto_ptr<Packs::PartitionPack>,
                         Templates::auto_ptr<Metadata::PartitionMetadata>) override
    {
        ++partitions;
    }
};

TEST(RealFiles, AreReadInOrder)
{
    VANTRY_NEEDS_SAMPLES();
    for (std::filesystem::path const & path : samples())
    {
        Bytes const bytes = readFile(path);
        BytesSource source(bytes);
        Counter counter(source, Schema().dictionary());
        attempt(
            [&]
            {
                while (counter.next(SEARCH_LIMIT))
                    continue;
            });
        EXPECT_EQ(counter.partitions, packsIn(bytes).size()) << path;
    }
}

}}}

// Files that another process is writing while they are read.

#include "Growing/FileSource.h"
#include "MXFIO/IndexTableCompleteCache.h"
#include "MXFIO/IndexTableStreamingProvider.h"
#include "MXFIO/StreamingPartitionProvider.h"
#include "Platform/Clock.h"
#include "support/IndexSegments.h"
#include "support/OpenFile.h"
#include "support/Recorder.h"
#include "support/TemporaryFile.h"

#include <gtest/gtest.h>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;

unsigned int const BODY_SID = 1;
unsigned int const INDEX_SID = 2;
unsigned int const PARTITIONS = 40;
unsigned int const EDIT_UNITS_PER_PARTITION = 10;
UInt64 const EDIT_UNIT_SIZE = 520;

UInt64 testTime = 0;

MXFFile recording()
{
    std::vector<FilePart> parts = {{HEADER, OPEN, chainMetadata(2)}};
    for (unsigned int i = 0; i < PARTITIONS; ++i)
    {
        Int64 const first = i * EDIT_UNITS_PER_PARTITION;
        Bytes essence;
        for (unsigned int j = 0; j < EDIT_UNITS_PER_PARTITION; ++j)
            essence += packet(essenceKey(), counting(EDIT_UNIT_SIZE - 20, static_cast<unsigned char>(first + j)));
        parts.push_back({BODY,
                         OPEN,
                         {},
                         essence,
                         BODY_SID,
                         indexBytes(first, EDIT_UNITS_PER_PARTITION),
                         INDEX_SID,
                         fill(40),
                         [=](Packs::PartitionPack & pack)
                         {
                             pack.bodyOffset(first * EDIT_UNIT_SIZE);
                         }});
    }
    parts.push_back({FOOTER, CLOSED, chainMetadata(2)});
    return MXFFile(parts);
}

// Plays a recording by what index and partitions tell, as far as it goes.
class Player
{
public:
    explicit Player(Growing::FileSource & source) :
        source_(source),
        reader_(source, Schema().dictionary(), SEARCH_LIMIT),
        last_(reader_.headerPartition()),
        partitions_(reader_, BODY_SID),
        index_(Templates::SharedPtr<IndexTableCache>(new IndexTableCompleteCache(BODY_SID, INDEX_SID)), reader_,
               INDEX_SID, {})
    {
    }

    // Edit units read so far, each of which was the right one.
    Int64 editUnits() const { return next_; }

    void playOn()
    {
        source_.refresh();
        while (Partition * const further = reader_.nextPartition(last_))
            last_ = further;
        while (playOne())
            ++next_;
    }

private:
    bool playOne()
    {
        auto const segment = index_.segment(next_);
        if (!segment)
            return false;
        EXPECT_EQ(segment->indexStartPosition().value(), next_ - next_ % EDIT_UNITS_PER_PARTITION);

        UInt64 const bodyOffset = static_cast<UInt64>(next_) * EDIT_UNIT_SIZE;
        Partition * const partition = partitions_.partitionContaining(bodyOffset, next_);
        if (partition == nullptr || partitions_.partitionContaining(bodyOffset + EDIT_UNIT_SIZE - 1, 0) != partition)
            return false;

        partition->gotoBodyRelativePosition(bodyOffset);
        Templates::auto_ptr<KLV::Packet> const packet = partition->nextBodyKLV(0);
        if (!packet)
            return false; // the look at the index has seen a partition more
        unsigned char first = 0;
        packet->value().readValue(&first, 1);
        EXPECT_EQ(first, static_cast<unsigned char>(next_));
        return true;
    }

    Growing::FileSource & source_;
    Reader2 reader_;
    Partition * last_;
    StreamingPartitionProvider partitions_;
    IndexTableStreamingProvider index_;
    Int64 next_ = 0;
};

TEST(Follow, PlaysARecordingWhileItIsMade)
{
    Platform::replaceMonotonicClock([] { return testTime += 5000; });
    MXFFile const file = recording();
    UInt64 const start = file.offset(1) + 50;
    for (unsigned int seed : {1, 2, 3})
    {
        TemporaryFile const target(file.bytes().first(start));
        Growing::FileSource source(target.name());
        Player player(source);
        Recorder recorder(target.path(), file.bytes(), start, seed);
        bool wasRecording = true;
        for (bool isRecording = true; isRecording || wasRecording;)
        {
            wasRecording = isRecording;
            isRecording = recorder.isAtWork();
            player.playOn();
        }
        EXPECT_EQ(player.editUnits(), PARTITIONS * EDIT_UNITS_PER_PARTITION) << seed;
    }
    Platform::replaceMonotonicClock(nullptr);
}

}}}

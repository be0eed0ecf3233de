// Files that another process is writing while they are read.

#include "Growing/FileSource.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/EssenceReader.h"
#include "MXFIO/IndexTableCompleteCache.h"
#include "MXFIO/IndexTableStreamingProvider.h"
#include "MXFIO/StreamingPartitionProvider.h"
#include "Platform/Clock.h"
#include "support/EssencePackages.h"
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
        reader_(source, Tests::Schema().dictionary(), SEARCH_LIMIT),
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

// Has files written by another process and played meanwhile.
template <class Player, class... Arguments>
void follow(MXFFile const & file, UInt64 start, Int64 editUnits, Arguments &... arguments)
{
    Platform::replaceMonotonicClock([] { return testTime += 5000; });
    for (unsigned int seed : {1, 2, 3})
    {
        TemporaryFile const target(file.bytes().first(start));
        Growing::FileSource source(target.name());
        Player player(source, arguments...);
        Recorder recorder(target.path(), file.bytes(), start, seed);
        bool wasRecording = true;
        for (bool isRecording = true; isRecording || wasRecording;)
        {
            wasRecording = isRecording;
            isRecording = recorder.isAtWork();
            player.playOn();
        }
        EXPECT_EQ(player.editUnits(), editUnits) << seed;
    }
    Platform::replaceMonotonicClock(nullptr);
}

TEST(Follow, FindsEditUnitsByTheProviders)
{
    MXFFile const file = recording();
    follow<Player>(file, file.offset(1) + 50, PARTITIONS * EDIT_UNITS_PER_PARTITION);
}

// A container of pictures and sound. The index of each partition is in the one
// behind, as recorders have it.
EssenceContainer const CONTAINER = {1, 25, 200, {PICTURE_ELEMENT, SOUND_ELEMENT}};

Bytes indexFrom(unsigned int first)
{
    auto const segment = indexSegment(first, EDIT_UNITS_PER_PARTITION);
    segment->indexSID(CONTAINER.bodySID + 100);
    segment->indexEditRate({25, 1});
    UInt64 const size = CONTAINER.unit(0).size();
    for (unsigned int i : {0, 1})
        segment->addDeltaEntry(i, IndexTables::DeltaEntry(0, 0, static_cast<unsigned int>(i * size / 2)));
    for (unsigned int i = 0; i < EDIT_UNITS_PER_PARTITION; ++i)
        segment->addIndexEntry(i, IndexTables::IndexEntry((first + i) * size));
    return serialized(*segment);
}

MXFFile essenceRecording()
{
    std::vector<FilePart> parts = {{HEADER, OPEN, chainMetadata(2)}};
    for (unsigned int first = 0; first <= CONTAINER.units; first += EDIT_UNITS_PER_PARTITION)
    {
        bool const isLast = first == CONTAINER.units;
        FilePart part = {isLast ? FOOTER : BODY, CLOSED};
        for (unsigned int i = first; i < first + EDIT_UNITS_PER_PARTITION && !isLast; ++i)
            part.body += CONTAINER.unit(static_cast<unsigned char>(i));
        if (first != 0)
            part.index = indexFrom(first - EDIT_UNITS_PER_PARTITION);
        part.indexSID = first != 0 ? CONTAINER.bodySID + 100 : 0;
        part.bodySID = isLast ? 0 : CONTAINER.bodySID;
        part.lie = [=](Packs::PartitionPack & pack)
        {
            pack.bodyOffset(isLast ? 0 : first * CONTAINER.unit(0).size());
        };
        parts.push_back(part);
    }
    return MXFFile(parts);
}

// Plays a package: in the order of the file all that is there, or what the index
// reaches, and seeks to and fro between.
class PackagePlayer
{
public:
    PackagePlayer(Growing::FileSource & source, EssencePackages const & packages, IndexTableHandlingMode mode) :
        file_(source, Tests::Schema().dictionary(), SEARCH_LIMIT),
        reader_(file_, packages.preface, packages.material, true, false, {})
    {
        reader_.indexTableHandlingMode(mode);
    }

    Int64 editUnits() const { return elements_ / 2; }

    void playOn()
    {
        reader_.refreshSource();
        EXPECT_GE(reader_.duration(), duration_);
        duration_ = reader_.duration();
        Int64 end = CONTAINER.units;
        if (reader_.indexTableHandlingMode() == INDEX_TABLE_USED)
        {
            Time const indexed = reader_.indexableDuration() * Time(25);
            end = std::max<Int64>(indexed.numerator(), 0);
            seekAbout(end);
        }
        while (editUnits() < end && playOne(editUnits()))
            ++elements_;
    }

private:
    using Time = Templates::Rational<Int64>;

    bool playOne(Int64 editUnit)
    {
        ElementEditUnit unit;
        if (!reader_.nextElementEditUnit(SEARCH_LIMIT, unit))
            return false;
        Bytes value(unit.packet->length());
        unit.packet->value().readValue(value.data(), value.size());
        EXPECT_EQ(value, repeated(10, static_cast<unsigned char>(editUnit)));
        return true;
    }

    // Ends where it began.
    void seekAbout(Int64 end)
    {
        if (editUnits() == end)
            return;
        for (Int64 editUnit : {end - 1, end / 2, editUnits()})
        {
            EXPECT_TRUE(reader_.seek(Time(editUnit) / Time(25))) << editUnit;
            EXPECT_TRUE(playOne(editUnit));
        }
        EXPECT_TRUE(reader_.seek(Time(editUnits()) / Time(25)));
    }

    Reader2 file_;
    EssenceReader reader_;
    Int64 elements_ = 0;
    Time duration_ = -1;
};

TEST(Follow, PlaysAPackage)
{
    EssenceContainer asFarAsKnown = CONTAINER;
    asFarAsKnown.units = 0;
    EssencePackages packages;
    packages.addContainer(asFarAsKnown);
    packages.addTrack(packages.material, 1, 0, 25, -1, {{1, 1, 0, -1}});
    packages.addTrack(packages.material, 2, 0, 25, -1, {{1, 2, 0, -1}});

    MXFFile const file = essenceRecording();
    UInt64 const start = file.offset(1) + MXFFile::PACK_SIZE + CONTAINER.unit(0).size();
    for (IndexTableHandlingMode mode : {INDEX_TABLE_USED, INDEX_TABLE_IGNORED})
        follow<PackagePlayer>(file, start, CONTAINER.units, packages, mode);
}

}}}

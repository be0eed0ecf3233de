// Files that another process is writing while they are read.

#include "Growing/FileSource.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/EssenceReader.h"
#include "Platform/Clock.h"
#include "support/EssencePackages.h"
#include "support/OpenFile.h"
#include "support/Recorder.h"
#include "support/TemporaryFile.h"

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;

unsigned int const EDIT_UNITS_PER_PARTITION = 10;

UInt64 testTime = 0;

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
class Player
{
public:
    Player(Growing::FileSource & source, EssencePackages const & packages, IndexTableHandlingMode mode) :
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

// Has files written by another process and played meanwhile.
void follow(MXFFile const & file, UInt64 start, EssencePackages const & packages, IndexTableHandlingMode mode)
{
    Platform::replaceMonotonicClock([] { return testTime += 5000; });
    for (unsigned int seed : {1, 2, 3})
    {
        TemporaryFile const target(file.bytes().first(start));
        Growing::FileSource source(target.name());
        Player player(source, packages, mode);
        Recorder recorder(target.path(), file.bytes(), start, seed);
        bool wasRecording = true;
        for (bool isRecording = true; isRecording || wasRecording;)
        {
            wasRecording = isRecording;
            isRecording = recorder.isAtWork();
            player.playOn();
        }
        EXPECT_EQ(player.editUnits(), CONTAINER.units) << seed;
    }
    Platform::replaceMonotonicClock(nullptr);
}

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
        follow(file, start, packages, mode);
}

}}}

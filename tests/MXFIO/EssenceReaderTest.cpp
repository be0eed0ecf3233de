#include "MXFIO/EssenceReader.h"

#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/SystemItemKLVPacketListener.h"
#include "support/EssencePackages.h"
#include "support/Failure.h"
#include "support/GrowingSource.h"
#include "support/OpenFile.h"

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Time = Templates::Rational<Int64>;
using Clip = EssencePackages::Clip;

// Track and contents of what was read: "A3", and for a piece of a clip "A3-5".
std::string nameOf(ElementEditUnit & unit)
{
    Bytes value(unit.packet->length());
    unit.packet->value().readValue(value.data(), value.size());
    std::string name(1, static_cast<char>('A' + unit.trackID - 1));
    name += std::to_string(value[unit.headBytes]);
    unsigned char const last = value[value.size() - unit.tailBytes - 1];
    return last == value[unit.headBytes] ? name : name + '-' + std::to_string(last);
}

// What comes next, up to so many.
std::string read(EssenceReader & reader, unsigned int most = 1000)
{
    std::string units;
    EssenceReader::ElementEditUnit unit;
    for (; most != 0 && reader.nextElementEditUnit(SEARCH_LIMIT, unit); --most)
        units += (units.empty() ? "" : " ") + nameOf(unit);
    return units;
}

// A file of containers and its packages.
struct PackageFile
{
    explicit PackageFile(std::vector<EssenceContainer> const & containers, bool inPieces = false) : inPieces_(inPieces)
    {
        std::vector<FilePart> parts = {{HEADER}};
        for (EssenceContainer const & container : containers)
        {
            parts.push_back(container.part());
            sources.push_back(&packages.addContainer(container));
        }
        parts.push_back({FOOTER});
        file = std::make_unique<OpenFile>(MXFFile(parts));
    }

    void addTrack(unsigned int trackID, int rate, std::vector<Clip> const & clips)
    {
        Int64 length = 0;
        for (Clip const & clip : clips)
            length += clip.duration;
        packages.addTrack(packages.material, trackID, 0, rate, length, clips);
    }

    EssenceReader & play(Metadata::Structural::GenericPackage const & package)
    {
        reader = std::make_unique<EssenceReader>(file->reader, packages.preface, package, true, inPieces_,
                                                 Templates::SharedPtr<ContentStorageProfile>());
        return *reader;
    }
    EssenceReader & play() { return play(packages.material); }

    EssencePackages packages;
    std::vector<Metadata::Structural::SourcePackage *> sources;
    std::unique_ptr<OpenFile> file;
    std::unique_ptr<EssenceReader> reader;

private:
    bool const inPieces_;
};

EssenceContainer const PICTURE_AND_SOUND = {1, 25, 4, {PICTURE_ELEMENT, SOUND_ELEMENT}};

// Times in twenty-fifths of a second.
Time frames(Int64 count)
{
    return Time(count, 25);
}

TEST(EssenceReader, PlaysTracksInStep)
{
    struct Case
    {
        char const * name;
        std::vector<EssenceContainer> containers;
        std::vector<std::vector<Clip>> tracks;
        std::vector<int> rates;
        Int64 duration;
        char const * units;
    };
    EssenceContainer const sound = {2, 50, 5, {SOUND_ELEMENT}};
    Case const cases[] = {
        {"one container",
         {PICTURE_AND_SOUND},
         {{{1, 1, 0, 4}}, {{1, 2, 0, 4}}},
         {25, 25},
         4,
         "A0 B0 A1 B1 A2 B2 A3 B3"},
        {"by track number",
         {PICTURE_AND_SOUND},
         {{{1, 2, 0, 4}}, {{1, 1, 0, 4}}},
         {25, 25},
         4,
         "B0 A0 B1 A1 B2 A2 B3 A3"},
        {"parts of it", {PICTURE_AND_SOUND}, {{{1, 1, 2, 2}}, {{1, 2, 0, 2}}}, {25, 25}, 2, "A2 B0 A3 B1"},
        {"rates differ, and one ends",
         {{1, 25, 4}, sound},
         {{{1, 1, 0, 4}}, {{2, 1, 0, 5}}},
         {25, 50},
         4,
         "A0 B0 B1 A1 B2 B3 A2 B4 A3"},
        {"clip after clip",
         {PICTURE_AND_SOUND},
         {{{1, 1, 2, 1}, {1, 1, 0, 2}, {1, 1, 3, 1}}, {{1, 2, 0, 4}}},
         {25, 25},
         4,
         "A2 B0 A0 B1 A1 B2 A3 B3"},
        {"essence elsewhere",
         {PICTURE_AND_SOUND},
         {{{1, 1, 0, 1}, {9, 1, 0, 2}, {1, 1, 3, 1}}, {{1, 2, 0, 4}}},
         {25, 25},
         4,
         "A0 B0 B1 B2 A3 B3"},
        {"a track elsewhere", {PICTURE_AND_SOUND}, {{{9, 1, 0, 9}}, {{1, 2, 0, 2}}}, {25, 25}, 9, "B0 B1"},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        PackageFile file(c.containers);
        for (unsigned int i = 0; i < c.tracks.size(); ++i)
            file.addTrack(i + 1, c.rates[i], c.tracks[i]);

        EssenceReader & reader = file.play();
        EXPECT_EQ(reader.duration(), frames(c.duration));
        EXPECT_EQ(read(reader), c.units);
        EXPECT_EQ(read(reader), "");
        reader.rewind();
        EXPECT_EQ(read(reader), c.units) << "once more";
    }
}

TEST(EssenceReader, PlaysAFilePackage)
{
    PackageFile file({PICTURE_AND_SOUND, {2, 50, 5, {SOUND_ELEMENT}}});
    EXPECT_EQ(read(file.play(*file.sources[0])), "A0 B0 A1 B1 A2 B2 A3 B3");

    EssenceReader & reader = file.play(*file.sources[1]);
    EXPECT_EQ(&reader.package(), file.sources[1]);
    EXPECT_EQ(reader.essenceTrackIDs(), (Templates::vector<unsigned int>{1}));
    EXPECT_EQ(reader.essenceTracks()[0], file.sources[1]->track(0u));
    EXPECT_EQ(reader.indexableDuration(), Time(1, 10));
    EXPECT_EQ(read(reader, 2), "A0 A1");
    EXPECT_EQ(reader.position(), Time(1, 25));
}

TEST(EssenceReader, SeeksToATime)
{
    std::tuple<Time, bool, Time, char const *> const cases[] = {
        {frames(0), true, frames(0), "A2 B0 A3"},   {frames(1), true, frames(1), "A3 B1 B2"},
        {Time(3, 50), true, frames(1), "A3 B1 B2"}, {frames(2), false, frames(2), "B2 A0 B3"},
        {frames(3), true, frames(3), "A0 B3"},      {frames(4), true, frames(4), ""},
        {frames(5), false, frames(4), ""},
    };
    PackageFile file({PICTURE_AND_SOUND});
    file.addTrack(1, 25, {{1, 1, 2, 2}, {9, 1, 0, 1}, {1, 1, 0, 1}});
    file.addTrack(2, 25, {{1, 2, 0, 4}});
    EssenceReader & reader = file.play();
    for (auto const & [time, isReached, position, units] : cases)
    {
        SCOPED_TRACE(time.numerator());
        EXPECT_EQ(reader.seek(time), isReached);
        EXPECT_EQ(reader.position(), position);
        EXPECT_EQ(read(reader, 3), units);
    }

    reader.seek(frames(1));
    EXPECT_FALSE(reader.seek(frames(-1)));
    EXPECT_EQ(reader.position(), frames(1)) << "nothing has moved";
}

class SystemItems : public SystemItemKLVPacketListener
{
public:
    void systemItemPacketRead(Templates::auto_ptr<KLV::Packet>) override { ++count; }
    int count = 0;
};

TEST(EssenceReader, ReadsInFileOrder)
{
    unsigned int const OTHER_ELEMENT = 0x17010100;
    PackageFile file({{1, 25, 4, {SYSTEM_ELEMENT, SOUND_ELEMENT, PICTURE_ELEMENT, OTHER_ELEMENT}, false, false}});
    file.addTrack(1, 25, {{1, 3, 1, 2}});
    file.addTrack(2, 25, {{1, 2, 0, 2}});
    EssenceReader & reader = file.play();
    EXPECT_EQ(reader.indexTableHandlingMode(), INDEX_TABLE_USED);
    ASSERT_TRUE(reader.indexTableHandlingMode(INDEX_TABLE_IGNORED));
    EXPECT_EQ(reader.indexTableHandlingMode(), INDEX_TABLE_IGNORED);

    SystemItems listener;
    reader.registerKLVPacketListener(&listener);
    EXPECT_EQ(read(reader, 2), "B0 B1");
    EXPECT_EQ(reader.position(), frames(0)) << "of the picture";
    EXPECT_EQ(read(reader), "A1 A2");
    EXPECT_EQ(reader.position(), frames(2));
    EXPECT_EQ(listener.count, 4);
    reader.unregisterKLVPacketListener();

    EXPECT_TRUE(reader.seek(frames(1)));
    EXPECT_EQ(read(reader), "B1 A1 A2");

    PackageFile two({PICTURE_AND_SOUND, {2}});
    two.addTrack(1, 25, {{1, 1, 0, 4}});
    two.addTrack(2, 25, {{2, 1, 0, 4}});
    EXPECT_FALSE(two.play().indexTableHandlingMode(INDEX_TABLE_IGNORED)) << "of several containers";
    EXPECT_EQ(two.reader->indexTableHandlingMode(), INDEX_TABLE_USED);
}

TEST(EssenceReader, GivesClipsWholeOrInPieces)
{
    EssenceContainer const clip = {1, 100, 30, {SOUND_ELEMENT}, true};
    PackageFile whole({clip});
    whole.addTrack(1, 100, {{1, 1, 4, 20}});
    EXPECT_EQ(read(whole.play()), "A4-23");
    EXPECT_TRUE(whole.reader->seek(Time(1, 10)));
    EXPECT_EQ(read(*whole.reader), "A14-23");

    PackageFile pieces({clip, {2, 25, 3, {PICTURE_ELEMENT}}}, true);
    pieces.addTrack(1, 100, {{1, 1, 4, 26}});
    pieces.addTrack(2, 25, {{2, 1, 0, 3}});
    EssenceReader & reader = pieces.play();
    EXPECT_EQ(read(reader, 7), "B0 A4 A5 A6 A7 B1 A8");
    EXPECT_FALSE(reader.changeMasterEditRate(Templates::Rational<int>(10))) << "the clip starts within a piece";
    EXPECT_EQ(read(reader, 1), "A9");

    reader.seek(frames(1));
    EXPECT_TRUE(reader.changeMasterEditRate(Templates::Rational<int>(25)));
    EXPECT_EQ(reader.position(), frames(1));
    EXPECT_EQ(read(reader), "B1 A8-11 B2 A12-15 A16-19 A20-23 A24-27 A28-29");
    EXPECT_TRUE(reader.seek(frames(2)));
    EXPECT_EQ(read(reader, 2), "B2 A12-15");

    EXPECT_FAILURE(InvalidValue, "editRate > 0: Edit rate non-greater than zero.",
                   reader.changeMasterEditRate(Templates::Rational<int>(0)));
}

TEST(EssenceReader, RefusesWhatIsNoPackageOfEssence)
{
    PackageFile file({PICTURE_AND_SOUND});
    EXPECT_FAILURE(InvalidValue, "!(masterEditPeriod_ == 0): Package does not have valid Essence Tracks.", file.play());

    file.addTrack(1, 25, {{1, 1, 0, 4}});
    auto & other = file.packages.metadata.make<Metadata::Structural::TimecodeComponent>();
    file.packages.material.track(0u)->sequence()->addStructuralComponent(1, &other);
    EXPECT_FAILURE(InvalidStructure, "clip != 0: Package contains a invalid clip in the track.", file.play());
}

// Has the file grow by one byte after another: each edit unit comes once, as
// soon as it is whole.
TEST(EssenceReader, FollowsAFileThatGrows)
{
    for (bool inFileOrder : {false, true})
    {
        EssenceContainer container = PICTURE_AND_SOUND;
        container.hasIndex = false;
        EssencePackages packages;
        packages.addContainer(container);
        packages.addTrack(packages.material, 1, 0, 25, -1, {{1, 1, 0, -1}});
        packages.addTrack(packages.material, 2, 0, 25, -1, {{1, 2, 0, -1}});

        Bytes const bytes = MXFFile({{HEADER, OPEN}, container.part()}, false).bytes();
        UInt64 const start = bytes.size() - container.part().body.size() + container.unit(0).size();
        GrowingSource source(bytes, start);
        Reader2 file(source, Tests::Schema().dictionary(), SEARCH_LIMIT);
        EssenceReader reader(file, packages.preface, packages.material, true, false,
                             Templates::SharedPtr<ContentStorageProfile>());
        if (inFileOrder)
            reader.indexTableHandlingMode(INDEX_TABLE_IGNORED);

        std::string units = read(reader);
        EXPECT_EQ(units, "A0 B0");
        for (UInt64 size = start; size <= bytes.size(); ++size)
        {
            source.writeUpTo(size);
            source.refresh();
            reader.refreshSource();
            std::string const more = read(reader);
            units += (more.empty() ? "" : " ") + more;
        }
        EXPECT_EQ(units, "A0 B0 A1 B1 A2 B2 A3 B3");
        EXPECT_EQ(reader.position(), frames(4));
    }
}

}}}

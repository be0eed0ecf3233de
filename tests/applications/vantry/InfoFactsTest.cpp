// What `vantry info` finds out about files that are built here: sound ones, ones
// as makers of many kinds write them, and broken ones.

#include "FileReport.h"
#include "IndexTables/IndexEntry.h"
#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Output.h"
#include "PlainFilePage.h"
#include "support/IndexSegments.h"
#include "support/MXFFile.h"
#include "support/StructuralMetadata.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace Vantry { namespace Tests { namespace {

namespace Structural = Metadata::Structural;
using Json = nlohmann::ordered_json;
using Strings = std::vector<std::string>;

char const FRAME_WRAPPED[] = "060E2B34 04010102 0D010301 02046001";
char const CLIP_WRAPPED[] = "060E2B34 04010102 0D010301 02046002";
unsigned int const UNITS = 5;
UInt64 const VALUE_SIZE = 100;
UInt64 const UNIT_SIZE = 20 + VALUE_SIZE;

Json reportOn(Bytes const & file)
{
    BytesSource source(file);
    auto const report = Application::reportOf("file", source, ::Vantry::Schema::builtInTables());
    return report ? *report : Json();
}

/// A source package with time code and pictures at 30000/1001 in body SID 1.
Bytes metadata(char const * container = FRAME_WRAPPED, Int64 duration = UNITS, bool withContainerData = true)
{
    StructuralMetadata made;
    auto & preface = made.make<Structural::Preface>();
    auto & storage = made.make<Structural::ContentStorage>();
    auto & package = made.make<Structural::SourcePackage>();
    Types::UMID32 const umid(counting(32, 1).data());
    package.packageUID(&umid);
    preface.contentStorage(&storage);
    storage.appendPackage(&package);

    Types::Rational const rate(30000, 1001);
    namespace Definitions = Structural::DataDefinitionULs;
    auto * const time =
        Structural::createTimelineTrack(*made, package, Definitions::timecode12MInactive(), 1, 0, 0, rate, duration);
    auto & timecode = made.make<Structural::TimecodeComponent>();
    Types::UInt16 const base(30);
    Types::Position const start(1800);
    Types::Boolean const drop(true);
    timecode.roundedTimecodeBase(&base);
    timecode.startTimecode(&start);
    timecode.dropFrame(&drop);
    time->sequence()->addStructuralComponent(0, &timecode);
    Structural::createTimelineTrack(*made, package, Definitions::picture(), 2, 0x15010501, 0, rate, duration);

    auto & descriptor = made.make<Structural::GenericPictureEssenceDescriptor>();
    Types::UniversalLabel const label(hex(container).data());
    Types::UInt32 const track(2);
    descriptor.essenceContainer(&label);
    descriptor.linkedTrack(&track);
    descriptor.sampleRate(&rate);
    package.descriptor(&descriptor);
    if (withContainerData)
    {
        auto & data = made.make<Structural::EssenceContainerData>();
        Types::UInt32 const bodySID(1);
        data.linkedPackage(&package);
        data.bodySID(&bodySID);
        storage.appendEssenceContainerData(&data);
    }
    BytesSink sink;
    made->serialize(sink, true, Metadata::PartitionMetadata::PrefaceFirst, true);
    return sink.bytes();
}

/// A segment from edit unit `start` on: of one size, or with entries.
Bytes index(Int64 start, Int64 duration, unsigned int entries, UInt32 unitSize = 0,
            Types::Rational const & rate = Types::Rational(30000, 1001), UInt64 first = 0, UInt64 distance = UNIT_SIZE)
{
    auto const segment = indexSegment(start, duration);
    segment->indexSID(2);
    segment->indexEditRate(rate);
    if (unitSize != 0)
        segment->editUnitByteCount(unitSize);
    for (unsigned int i = 0; i < entries; ++i)
        segment->addIndexEntry(i, IndexTables::IndexEntry(first + (static_cast<UInt64>(start) + i) * distance));
    BytesSink sink;
    segment->serialize(sink);
    return sink.bytes();
}

/// A segment for all edit units whose entries have so many slices, besides what
/// is said of their number.
Bytes slicedIndex(unsigned char slices)
{
    auto const segment = indexSegment(0, UNITS);
    segment->sliceCount(slices);
    for (unsigned int i = 0; i < UNITS; ++i)
    {
        IndexTables::IndexEntry entry(i * UNIT_SIZE);
        for (unsigned int slice = 0; slice < slices; ++slice)
            entry.addSliceOffset(slice, 20);
        segment->addIndexEntry(i, entry);
    }
    return serialized(*segment);
}

/// A segment that has arrays of no entries.
Bytes indexOfEmptyArrays(UInt32 unitSize, std::string const & entrySize)
{
    Bytes const arrays = hex("3F09 0008 00000000 00000006 3F0A 0008 00000000" + entrySize);
    Bytes bytes = index(0, UNITS, 0, unitSize);
    bytes[19] = static_cast<unsigned char>(bytes[19] + arrays.size()); // of the packet's length
    return bytes + arrays;
}

/// Header, body and footer with the index.
std::vector<FilePart> parts(Bytes const & footerIndex = index(0, UNITS, UNITS), Bytes const & header = metadata())
{
    return {{HEADER, CLOSED, header},
            {BODY, CLOSED, {}, essence(UNITS, VALUE_SIZE), 1},
            {FOOTER, CLOSED, {}, {}, 0, footerIndex, footerIndex.empty() ? 0u : 2u}};
}

template <class Change>
std::vector<FilePart> changed(Change change)
{
    std::vector<FilePart> all = parts();
    change(all);
    return all;
}

TEST(InfoFacts, TellsOfASoundFile)
{
    Json const report = reportOn(MXFFile(parts(), true, repeated(8, 7)).bytes());
    EXPECT_EQ(report["run_in"], 8);
    EXPECT_EQ(report["operational_pattern"]["name"], "OP1a");
    EXPECT_EQ(report["partitions"][1]["offset"], report["partitions"][1]["this_partition"].get<int>() + 8);
    EXPECT_EQ(report["random_index_pack"].size(), 3u);
    EXPECT_EQ(report["warnings"], Json::array());

    Json const & package = report["packages"][0];
    EXPECT_EQ(package["kind"], "file");
    EXPECT_EQ(package["tracks"][0]["start_timecode"], "00:01:00;02");
    EXPECT_EQ(package["tracks"][1].dump(),
              R"({"id":2,"number":"0x15010501","name":"","kind":"picture","edit_rate":"30000/1001","origin":0,)"
              R"("duration":5,"start_timecode":null})");
    EXPECT_EQ(package["descriptors"][0]["class"], "GenericPictureEssenceDescriptor");
    EXPECT_EQ(package["descriptors"][0]["linked_track"], 2);
    EXPECT_EQ(package["descriptors"][0]["properties"]["sampleRate"], "30000/1001");
    EXPECT_EQ(report["containers"][0].dump(),
              R"({"body_sid":1,"index_sid":2,"wrapping":"frame","edit_rate":"30000/1001","duration":5,)"
              R"("readable_edit_units":5,"size":600,"index":{"kind":"vbe","segments":1,"edit_units":5}})");
}

TEST(InfoFacts, ShowsPeopleWhatMattersMost)
{
    Json report = reportOn(MXFFile(parts(), false, repeated(8, 7)).bytes());
    Json & containers = report["containers"];
    containers.push_back(containers[0]);
    containers[1]["duration"] = nullptr;
    containers.push_back(containers[1]);
    containers[2]["readable_edit_units"] = nullptr;
    containers[2]["index"]["kind"] = "none";
    for (unsigned int channels : {1, 2, 2})
        report["packages"][0]["descriptors"].push_back({{"class", "Sound"},
                                                        {"essence_container", nullptr},
                                                        {"linked_track", 9},
                                                        {"properties", {{"channelCount", channels}}}});
    report["size"] = 9999;

    Application::Output output(stdout);
    Application::writePlainPage(report, output);
    EXPECT_EQ(fmt::to_string(output.buffer()), &R"(
file
  Pattern   OP1a
  Size      9999 bytes, the first 8 a run-in
  Length    00:00:00.167, 5 edit units at 30000/1001
  Start     00:01:00;02
  Metadata  closed, complete, 10 sets
  Faults    1, see the end of this page

File package
  track  kind           edit rate  duration
      1  timecode      30000/1001         5  from 00:01:00;02
      2  picture       30000/1001         5  GenericPictureEssenceDescriptor: MXF-GC Frame-wrapped MPEG-ES VideoStream-0 SID
         Sound, 1 channel
         2 x Sound, 2 channels

Essence
  body SID 1: frame wrapped, 600 bytes, 5 of 5 edit units readable, at 30000/1001
    index SID 2: edit units of any size, 1 segment for 5
  body SID 1: frame wrapped, 600 bytes, 5 edit units readable, at 30000/1001
    index SID 2: edit units of any size, 1 segment for 5
  body SID 1: frame wrapped, 600 bytes, edit units unknown, at 30000/1001
    no index

Partitions
               8  header  closed, complete    body SID 0, index SID 0
            2947  body    closed, complete    body SID 1, index SID 0
            3655  footer  closed, complete    body SID 0, index SID 2
  no random index pack

Faults
  there is no random index pack
)"[1]);
}

struct Case
{
    char const * name;
    Bytes file;
    Json readable;
    Strings warnings;
};

void expectAll(std::vector<Case> const & cases)
{
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        Json const report = reportOn(c.file);
        ASSERT_FALSE(report.is_null());
        EXPECT_EQ(report["containers"][0]["readable_edit_units"], c.readable);
        EXPECT_EQ(report["warnings"].get<Strings>(), c.warnings);
    }
}

TEST(InfoFacts, CountsByAnyIndex)
{
    Bytes const clip = packet(essenceKey(), counting(UNITS * VALUE_SIZE));
    auto const strayIndex = []
    {
        auto const segment = indexSegment(0, UNITS);
        segment->bodySID(7);
        return serialized(*segment);
    };
    auto const clipWrapped = [&](Bytes const & footerIndex)
    {
        std::vector<FilePart> all = parts(footerIndex, metadata(CLIP_WRAPPED));
        all[1].body = clip;
        return MXFFile(all).bytes();
    };
    auto const with = [](Bytes const & footerIndex)
    {
        return MXFFile(parts(footerIndex)).bytes();
    };
    auto const repeatedIndex = [](std::vector<FilePart> & all)
    {
        all[0].index = all[2].index;
        all[0].indexSID = 2;
    };
    expectAll({
        {"none", with({}), 5, {}},
        {"two segments", with(index(0, 2, 2) + fill(30) + index(2, 3, 3)), 5, {}},
        {"repeated in the header", MXFFile(changed(repeatedIndex)).bytes(), 5, {}},
        {"of one size", with(index(0, UNITS, 0, UNIT_SIZE)), 5, {}},
        {"of one size, for as long as there is essence", with(index(0, 0, 0, UNIT_SIZE)), 5, {}},
        {"without a rate", with(index(0, UNITS, UNITS, 0, {0, 0})), 5, {}},
        {"of another rate", with(index(0, UNITS, UNITS, 0, {1, 2})), 5, {}},
        {"without number of slices", with(slicedIndex(0)), 5, {}},
        {"with a slice", with(slicedIndex(1)), 5, {}},
        {"with two slices", with(slicedIndex(2)), 5, {}},
        {"of one size, with empty arrays", with(indexOfEmptyArrays(UNIT_SIZE, "00000000")), 5, {}},
        {"of one size, with empty arrays of entries", with(indexOfEmptyArrays(UNIT_SIZE, "0000000B")), 5, {}},
        {"of nothing but empty arrays", with(indexOfEmptyArrays(0, "0000000B")), 5, {}},
        {"one entry more than edit units", with(index(0, UNITS, UNITS + 1)), 5, {}},
        {"segments that overlap", with(index(0, 4, 4) + index(2, 3, 3) + index(1, 1, 1)), 5, {}},
        {"of a stream that is nowhere", with(index(0, UNITS, UNITS) + strayIndex()), 5,
         Strings{"there is an index of body SID 7, and no essence"}},
        {"too short", with(index(0, 3, 3)), 5, Strings{"the index of body SID 1 covers 3 of 5 edit units"}},
        {"with a gap", with(index(0, 1, 1) + index(3, 2, 2)), 5,
         Strings{"the index of body SID 1 covers 1 of 5 edit units"}},
        {"fewer entries than edit units", with(index(0, UNITS, 2)), 5,
         Strings{"the index table segment at offset " +
                     std::to_string(MXFFile(parts()).offset(2) + MXFFile::PACK_SIZE) +
                     " has 2 entries for 5 edit units",
                 "the index of body SID 1 covers 2 of 5 edit units"}},
        {"that lies", with(index(0, UNITS, 0, UNIT_SIZE + 1)), 5,
         Strings{"the index of body SID 1 leads to places where no edit units begin"}},
        {"a clip", clipWrapped(index(0, UNITS, 0, VALUE_SIZE)), 5, {}},
        {"a clip without index", clipWrapped({}), nullptr, {}},
    });
}

TEST(InfoFacts, CountsInACutClip)
{
    // Some makers count from the value of the clip, others from its key.
    for (UInt64 first : {0, 20})
    {
        MXFFile const file({{HEADER,
                             CLOSED,
                             metadata(CLIP_WRAPPED),
                             {},
                             0,
                             index(0, UNITS, UNITS, 0, {30000, 1001}, first, VALUE_SIZE),
                             2},
                            {BODY, CLOSED, {}, packet(essenceKey(), counting(UNITS * VALUE_SIZE)), 1}});
        UInt64 const value = file.offset(1) + MXFFile::PACK_SIZE + 20;
        for (UInt64 size : {0, 1, 99, 100, 101, 300, 499, 500})
            EXPECT_EQ(reportOn(file.bytes().first(value + size))["containers"][0]["readable_edit_units"],
                      size / VALUE_SIZE)
                << size << " bytes, counted from " << first;
    }
}

TEST(InfoFacts, NamesEachFault)
{
    UInt64 const footer = MXFFile(parts()).offset(2);
    UInt64 const body = MXFFile(parts()).offset(1);
    Bytes const whole = MXFFile(parts()).bytes();
    Bytes const noFooter = whole.first(footer);
    std::string const at = std::to_string(footer);
    std::string const missing =
        "the footer partition is missing: it should be at offset " + at + ", and the file ends at ";
    std::string const noRIP = "there is no random index pack";
    auto const lying = [](std::size_t part, std::function<void(Packs::PartitionPack &)> const & lie)
    {
        return MXFFile(changed([&](std::vector<FilePart> & all) { all[part].lie = lie; })).bytes();
    };
    auto const shifted = [&]
    {
        // Each entry of the pack leads 16 bytes too far.
        Bytes file = whole;
        for (std::size_t entry = 0; entry < 3; ++entry)
            file[file.size() - 4 - 12 * entry - 1] ^= 0x10;
        return file;
    };
    expectAll({
        {"a stray byte behind all", whole + hex("00"), 5,
         Strings{"1 bytes at offset " + std::to_string(whole.size()) + " are no packet"}},
        {"no random index pack", MXFFile(parts(), false).bytes(), 5, {noRIP}},
        {"no footer", noFooter, 5, {missing + at, noRIP}},
        {"cut in the fourth edit unit", whole.first(footer - UNIT_SIZE - 10), 3,
         Strings{"the packet at offset " + std::to_string(footer - 2 * UNIT_SIZE) +
                     " is cut: 90 of 100 bytes of its value are there",
                 missing + std::to_string(footer - UNIT_SIZE - 10), noRIP,
                 "the essence of body SID 1 ends after 3 of 5 edit units"}},
        {"no body",
         whole.first(body),
         0,
         {missing + std::to_string(body), noRIP, "the essence of body SID 1 ends after 0 of 5 edit units"}},
        {"a header that doesn't know the footer", lying(0, [](auto & pack) { pack.footerPartition(0); }), 5,
         Strings{"the header partition doesn't tell of the footer partition at offset " + at}},
        {"bodies that don't, of any grid",
         lying(1,
               [](auto & pack)
               {
                   pack.footerPartition(0);
                   pack.kagSize(131072);
               }),
         5,
         {}},
        {"no grid", lying(0, [](auto & pack) { pack.kagSize(0); }), 5, {}},
        {"an unknown length", MXFFile(parts(index(0, UNITS, UNITS), metadata(FRAME_WRAPPED, -1))).bytes(), 5, {}},
        {"no stream that the metadata tell of",
         MXFFile(parts(index(0, UNITS, UNITS), metadata(FRAME_WRAPPED, UNITS, false))).bytes(), 5,
         Strings{"the metadata don't tell where the essence of their file package is: body SID 1 is taken"}},
        {"a footer offset that lies", lying(0, [](auto & pack) { pack.footerPartition(99); }), 5,
         Strings{"the header partition has the footer at offset 99, where it is not: it is at " + at}},
        {"a previous partition that lies", lying(2, [](auto & pack) { pack.previousPartition(0); }), 5,
         Strings{"the partition at offset " + at + " says that it follows the one at 0, and follows that at " +
                 std::to_string(body)}},
        {"a loop of partitions", lying(1, [=](auto & pack) { pack.previousPartition(footer); }), 5,
         Strings{"the partition at offset " + std::to_string(body) + " says that it follows the one at " + at +
                 ", and follows that at 0"}},
        {"a body offset that lies", lying(1, [](auto & pack) { pack.bodyOffset(99); }), 0,
         Strings{"99 bytes of body SID 1 should be ahead of offset " + std::to_string(body + MXFFile::PACK_SIZE) +
                     ", and 0 are",
                 "the essence of body SID 1 ends after 0 of 5 edit units"}},
        {"a random index pack that lies", shifted(), 5,
         Strings{"the random index pack lists a partition at offset 16, where there is none; 2 more like this",
                 "the random index pack lacks the partition at offset 0; 2 more like this"}},
        {"another pattern",
         lying(1, [](auto & pack) { pack.operationalPattern(Types::UniversalLabel(hex(CLIP_WRAPPED).data())); }), 5,
         Strings{"the partition at offset " + std::to_string(body) +
                 " has another operational pattern than the header partition"}},
    });
}

TEST(InfoFacts, TellsOfManyFaultsInFewLines)
{
    unsigned int const PACKS = 5000;
    Bytes unreadable;
    for (unsigned int i = 0; i < PACKS; ++i)
        unreadable += hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 03 04 00 83 00 00 00");
    MXFFile const file(
        changed([&](auto & all) { all[1].body = essence(2, VALUE_SIZE) + unreadable + essence(3, VALUE_SIZE); }));

    Json const report = reportOn(file.bytes().first(file.offset(2)));
    EXPECT_EQ(report["containers"][0]["readable_edit_units"], UNITS);
    Strings const warnings = report["warnings"];
    UInt64 const eighth = file.offset(1) + MXFFile::PACK_SIZE + 2 * UNIT_SIZE + 7 * 20;
    ASSERT_EQ(warnings.size(), 10u);
    EXPECT_EQ(warnings[7],
              "the partition pack at offset " + std::to_string(eighth) + " can't be read; 4992 more like this");
}

}}}

#include "OPBuilders/GenericOPBuilder.h"

#include "Metadata/BatchElement.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/StaticTrack.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Utils/Test/DeterministicScope.h"
#include "support/BuiltMetadata.h"
#include "support/Failure.h"

#include <functional>

namespace Vantry { namespace OPBuilders { namespace {

using namespace Tests;
using namespace Metadata::Structural;
namespace Keys = StructuralMetadataKeys;

Types::Rational const NO_RATE(0, 1);

struct Building : BuiltMetadata<GenericOPBuilder>
{
    explicit Building(std::vector<std::string> const & sourceTracks = {}, Int64 length = 10,
                      bool externalEssence = false, bool nonStream = false,
                      Types::ProductVersion const * version = nullptr) :
        BuiltMetadata(sharedLenientDictionary(), version, externalEssence, nonStream)
    {
        for (std::string const & tracks : sourceTracks)
            addSource(tracks, length);
    }

    // Bytes 12 to 14 of the label, updated.
    Bytes complexity()
    {
        builder.update();
        EXPECT_EQ(*preface.operationalPattern(), builder.currentOP());
        unsigned char const * const label = builder.currentOP().rawBuffer();
        EXPECT_EQ(Bytes(label, label + 12), hex("06 0E 2B 34 04 01 01 01 0D 01 02 01"));
        return Bytes(label + 12, label + 15);
    }

    // Items of a batch, -1 when it isn't there.
    int itemsOf(Types::UniversalLabel const & label)
    {
        auto const * const batch = dynamic_cast<Metadata::BatchElement &>(preface.find(label)).value();
        return batch != nullptr ? static_cast<int>(batch->size()) : -1;
    }
};

TEST(GenericOPBuilder, LabelTellsHowComplexTheFileIs)
{
    std::tuple<char const *, std::vector<std::string>, std::vector<std::string>, char const *> const cases[] = {
        {"nothing", {}, {}, "01 01 01"},
        {"a track", {"p"}, {"A1"}, "01 01 01"},
        {"picture and sound", {"ps"}, {"A1 A2"}, "01 01 09"},
        {"data beside time code", {"td"}, {"A2"}, "01 01 01"},
        {"two sources", {"p", "s"}, {"A1 B1"}, "01 02 01"},
        {"two sources in one track", {"p", "p"}, {"A1+B1"}, "02 01 01"},
        {"two clips", {"ps"}, {"A1+A1 A2"}, "02 01 09"},
        {"a part", {"p"}, {"A1:2,5"}, "03 01 01"},
        {"a part from the start", {"p"}, {"A1:0,9"}, "03 01 01"},
        {"all of it as a part", {"p"}, {"A1:0,10"}, "01 01 01"},
        {"two packages", {"p", "s"}, {"A1", "A1 B1"}, "01 03 01"},
    };
    for (auto const & [name, sources, packages, complexity] : cases)
    {
        SCOPED_TRACE(name);
        Building building(sources);
        for (std::string const & package : packages)
            building.addMaterial(package);
        EXPECT_EQ(building.complexity(), hex(complexity));
    }
    EXPECT_EQ(Building({}, 0, true).complexity(), hex("01 01 03"));
    EXPECT_EQ(Building({}, 0, false, true).complexity(), hex("01 01 05"));

    // Complexity stays, qualifiers follow.
    Building building({"ps"});
    building.addMaterial("A1:2,5").materialPackage().track(0u)->sequence()->removeStructuralComponent(0);
    EXPECT_EQ(building.complexity(), hex("03 01 09"));
    building.sources[0]->removeTrack(1);
    building.builder.externalEssence(true);
    EXPECT_EQ(building.complexity(), hex("03 01 03"));
    building.builder.externalEssence(false);
    EXPECT_EQ(building.complexity(), hex("03 01 01"));
}

TEST(GenericOPBuilder, DurationsAreRoundedUpAtEachRate)
{
    struct Case
    {
        char const * name;
        Int64 sourceLength;
        Templates::Rational<int> rate;
        char const * tracks;
        std::vector<Int64> origins;
        char const * expected;
    };
    Case const cases[] = {
        {"rate of the source", 10, -1, "A1 A2", {}, "1:10(0+10) 2:10(0+10) 0:10"},
        {"another rate", 10, {30000, 1001}, "A1", {}, "1:12(0+12) 0:10"},
        {"clip after clip", 11, 30, "A1+A1", {}, "1:27(0+14)(0+14) 0:22"},
        {"parts", 10, 50, "A1:3,5+A1", {}, "1:25(3+5)(0+20) 0:13"},
        {"an empty part", 10, 25, "A1:3,0", {}, "1:0(3+0) 0:0"},
        {"a length not known", -1, 25, "A1 A1:2,5", {}, "1:-1(0+-1) 2:5(2+5) 0:-1"},
        {"known behind not known", -1, 25, "A1+A1:2,5", {}, "1:-1(0+-1)(2+5) 0:-1"},
        {"origins", 10, 25, "A1 A2", {2, 1}, "1:10(0+10) 2:10(0+10) 0:35"},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        Building building({"ps"}, c.sourceLength);
        MaterialPackageProxy & package = building.addMaterial(c.tracks, c.rate == -1 ? nullptr : &c.rate, c.origins);
        for (int repeat = 0; repeat < 2; ++repeat)
        {
            building.builder.update();
            EXPECT_EQ(tracksOf(package.materialPackage()), c.expected);
        }
    }
}

TEST(GenericOPBuilder, UpdateTakesInWhatSourcesHaveBecome)
{
    Building building({"tps"}, -1);
    MaterialPackageProxy & package = *building.builder.createMaterialPackage(Utils::TimeCode(25), 25);
    EXPECT_EQ(package.addSourcePackage(0, *building.sources[0]).size(), 2u);
    std::pair<Int64, char const *> const cases[] = {
        {-1, "1:-1(0+-1) 2:-1(0+-1) 0:-1"}, {8, "1:8(0+8) 2:8(0+8) 0:8"}, {9, "1:9(0+9) 2:9(0+9) 0:9"}};
    for (auto const & c : cases)
    {
        Types::Length const duration(c.first);
        for (char const * track : {"A2", "A3"})
            building.track(track).sequence()->structuralComponent(0)->duration(&duration);
        building.builder.update();
        EXPECT_EQ(tracksOf(package.materialPackage()), c.second);
    }

    auto const & clip =
        dynamic_cast<SourceClip &>(*package.materialPackage().track(1u)->sequence()->structuralComponent(0));
    EXPECT_EQ(clip.sourcePackage(), building.sources[0]);
    EXPECT_EQ(clip.sourceTrack()->value(), 3u);
    EXPECT_EQ(*clip.dataDefinition(), DataDefinitionULs::audio());
}

TEST(GenericOPBuilder, MakesWhatEachFileHas)
{
    Utils::Test::DeterministicScope const deterministic;
    Building building;
    EXPECT_EQ(*building.preface.version(), Types::VersionType(1, 2));
    EXPECT_EQ(building.preface.objectModelVersion()->value(), 1u);
    EXPECT_EQ(building.preface.lastModifiedDate()->year(), 2003);
    EXPECT_EQ(building.itemsOf(StructuralMetadataULs::dmSchemes()), 0);
    Identification & identification = *building.preface.identification(0);
    EXPECT_EQ(*identification.platform(), Types::UTF16String(Platform::wide(u"win32")));
    EXPECT_EQ(*identification.versionString(), Types::UTF16String(Platform::wide(u"1.0")));
    EXPECT_EQ(building.preface.generation(), &identification);
    EXPECT_EQ(building.storage.generation(), &identification);

    Types::UMID32 const id = sample<Types::UMID32>(7);
    Utils::TimeCode const start(30, 1, 0, 0, 2, true, false);
    auto & package = building.builder.createMaterialPackage(start, {30000, 1001}, id)->materialPackage();
    EXPECT_EQ(*package.packageUID(), id);
    auto const & track = dynamic_cast<TimelineTrack &>(*package.track(0u));
    EXPECT_EQ(*track.editRate(), Types::Rational(30000, 1001));
    auto const & timecode = dynamic_cast<TimecodeComponent &>(*track.sequence()->structuralComponent(0));
    EXPECT_EQ(timecode.roundedTimecodeBase()->value(), 30);
    EXPECT_EQ(timecode.startTimecode()->value(), 107894);
    EXPECT_TRUE(timecode.dropFrame()->value());
    EXPECT_EQ(timecode.generation(), &identification);
}

TEST(GenericOPBuilder, TellsTheVersionOfTheLibraryBesideAnother)
{
    using Types::ProductVersion;
    ProductVersion const none(0, 0, 0, 0, ProductVersion::RELEASE_UNKNOWN);
    ProductVersion const some(1, 2, 3, 4, ProductVersion::RELEASE_BETA);
    for (ProductVersion const * version : {&none, &some})
    {
        Building const building({}, 0, false, false, version);
        Identification const & identification = *building.preface.identification(0);
        EXPECT_EQ(*identification.productVersion(), *version);
        EXPECT_EQ(identification.toolkitVersion()->minor(), version == &some ? 4 : 0);
    }
    EXPECT_EQ(Building().preface.identification(0)->toolkitVersion(), nullptr);
}

TEST(GenericOPBuilder, ListsEssenceContainersInOrder)
{
    Types::UniversalLabel const multiple(hex("06 0E 2B 34 04 01 01 03 0D 01 03 01 02 7F 01 00").data());
    Building building({"p", "s", "s"});
    auto & several = building.make<MultipleDescriptor>(Keys::multipleDescriptor());
    several.essenceContainer(&multiple);
    several.addSubDescriptor(0, &several);
    several.addSubDescriptor(1, &building.descriptor("06 0E 2B 34 04 01 01 02 0D 01 03 01 02 04 60 01"));
    building.sources[0]->descriptor(&several);

    // By a byte in which they differ.
    auto const listed = [&]
    {
        building.builder.update();
        Bytes bytes;
        for (unsigned int i = 0; i < building.preface.essenceContainersCount(); ++i)
            bytes.push_back((*building.preface.essenceContainer(i))[13]);
        return bytes;
    };
    EXPECT_EQ(listed(), hex("06 04 7F"));
    building.builder.suppressMultipleWrappingsUL(true);
    EXPECT_EQ(listed(), hex("06 04"));
    building.builder.externalEssence(true);
    EXPECT_EQ(listed(), Bytes());
    EXPECT_EQ(building.itemsOf(StructuralMetadataULs::essenceContainers()), 0);
}

TEST(GenericOPBuilder, RefusesTracksThatCantBeClips)
{
    Building building({"ps"});
    SourcePackage & source = *building.sources[0];
    TrackProxy & track = *building.addMaterial("A1").addTrack(0, nullptr);
    auto & timeline = building.make<TimelineTrack>(Keys::timelineTrack());
    auto & still = building.make<StaticTrack>(Keys::staticTrack());
    Types::Rational const rate(25, 1);

    EXPECT_FAILURE(InvalidFormat, "tt != 0: Only Timeline Tracks are allowed", track.addClip(source, still));
    EXPECT_FAILURE(InvalidFormat, "rate != 0: Track has no Edit Rate", track.addSubClip(source, timeline, 0, 1));
    timeline.editRate(&rate);
    EXPECT_FAILURE(InvalidFormat, "seq != 0: Track has no Sequence", track.addClip(source, timeline));
    timeline.sequence(&building.make<Sequence>(Keys::sequence()));
    EXPECT_FAILURE(InvalidFormat, "dataDefinition != 0: Sequence has no Data Definition",
                   track.addClip(source, timeline));
    building.addClip(track, "A2");
    EXPECT_FAILURE(InvalidFormat, "dataDefinition_ == *dataDefinition: Adding tracks with different Data Definitions",
                   building.addClip(track, "A1"));
    EXPECT_EQ(track.track().sequence()->structuralComponentsCount(), 1u);
    EXPECT_EQ(building.complexity(), hex("01 01 09"));
}

TEST(GenericOPBuilder, RefusesToUpdateFromBrokenSources)
{
    // A track outside of its package is one that only the clip sees.
    using Break = void (*)(Building &, TimelineTrack &);
    std::pair<Break, char const *> const cases[] = {
        {[](Building & b, TimelineTrack & t)
         { t.sequence()->addStructuralComponent(1, &b.make<TimecodeComponent>(Keys::timecodeComponent())); },
         "clip != 0: The sequence contains a Structural Component that is not a Source Clip."},
        {[](Building &, TimelineTrack & t) { t.editRate(nullptr); },
         "track_ -> editRate () != 0: Track has no edit rate"},
        {[](Building &, TimelineTrack & t) { t.editRate(&NO_RATE); },
         "originalEditRate.numerator () != 0: Track edit rate is 0"},
        {[](Building &, TimelineTrack & t) { t.sequence()->dataDefinition(nullptr); },
         "definition != 0: Sequence has no Data Definition"},
        {[](Building & b, TimelineTrack & t) { b.sources[0]->removeTrack(0), t.sequence()->dataDefinition(nullptr); },
         "sequence_ -> dataDefinition () != 0: Sequence has no data definition"},
        {[](Building &, TimelineTrack & t) { t.sequence(nullptr); }, "seq != 0: Track has no sequence"},
        {[](Building & b, TimelineTrack & t) { b.sources[0]->removeTrack(0), t.sequence(nullptr); },
         "sequence_ != 0: Track has no sequence"},
        {[](Building & b, TimelineTrack &)
         { b.metadata.removeMetadataSet(Types::UUID(*b.addSource("p").track(0u)->instanceUID())); },
         "track != 0: Track is null"},
        {[](Building & b, TimelineTrack &)
         { dynamic_cast<FileDescriptor &>(*b.sources[0]->descriptor()).essenceContainer(nullptr); },
         "ul != 0: FileDescriptor doesn't have a EssenceContainer UL"},
    };
    for (auto const & c : cases)
    {
        Building building({"p"});
        building.addMaterial("A1");
        c.first(building, dynamic_cast<TimelineTrack &>(building.track("A1")));
        EXPECT_FAILURE(InvalidFormat, c.second, building.builder.update());
    }
}

}}}

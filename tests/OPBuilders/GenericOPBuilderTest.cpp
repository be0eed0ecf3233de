#include "OPBuilders/GenericOPBuilder.h"

#include "Exceptions/InvalidFormat.h"
#include "Metadata/BatchElement.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/StaticTrack.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Utils/Test/DeterministicScope.h"
#include "support/BuiltMetadata.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

#include <functional>

namespace Vantry { namespace OPBuilders { namespace {

using namespace Tests;
using namespace Metadata::Structural;

struct Building : BuiltMetadata<GenericOPBuilder>
{
    explicit Building(std::vector<std::string> const & sourceTracks = {}, bool externalEssence = false,
                      bool nonStream = false, Int64 length = 10) :
        BuiltMetadata(externalEssence, nonStream)
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
        EXPECT_EQ(label[15], 0);
        return Bytes(label + 12, label + 15);
    }
};

TEST(GenericOPBuilder, LabelTellsHowComplexTheFileIs)
{
    struct Case
    {
        char const * name;
        std::vector<std::string> sources;
        std::vector<std::string> packages;
        char const * complexity;
    };
    Case const cases[] = {
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
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        Building building(c.sources);
        for (std::string const & package : c.packages)
            building.addMaterial(package);
        EXPECT_EQ(building.complexity(), hex(c.complexity));
    }

    EXPECT_EQ(Building({}, true).complexity(), hex("01 01 03"));
    EXPECT_EQ(Building({}, false, true).complexity(), hex("01 01 05"));
}

TEST(GenericOPBuilder, ComplexityStaysAndQualifiersFollow)
{
    Building building({"ps"});
    MaterialPackageProxy & package = building.addMaterial("A1:2,5");
    EXPECT_EQ(building.complexity(), hex("03 01 09"));

    package.materialPackage().track(0u)->sequence()->removeStructuralComponent(0);
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
        Building building({"ps"}, false, false, c.sourceLength);
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
    Building building({"tps"}, false, false, -1);
    MaterialPackageProxy & package = *building.builder.createMaterialPackage(Utils::TimeCode(25), 25);
    EXPECT_EQ(package.addSourcePackage(0, *building.sources[0]).size(), 2u);
    building.builder.update();
    EXPECT_EQ(tracksOf(package.materialPackage()), "1:-1(0+-1) 2:-1(0+-1) 0:-1");

    for (Int64 const length : {8, 9})
    {
        Types::Length const duration(length);
        for (char const * track : {"A2", "A3"})
            building.track(track).sequence()->structuralComponent(0)->duration(&duration);
        building.builder.update();
    }
    EXPECT_EQ(tracksOf(package.materialPackage()), "1:9(0+9) 2:9(0+9) 0:9");

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
    Preface & preface = building.preface;
    EXPECT_EQ(*preface.version(), Types::VersionType(1, 2));
    EXPECT_EQ(preface.objectModelVersion()->value(), 1u);
    EXPECT_EQ(preface.lastModifiedDate()->year(), 2003);
    Identification & identification = *preface.identification(0);
    EXPECT_EQ(*identification.platform(), Types::UTF16String(Platform::wide(u"win32")));
    EXPECT_EQ(*identification.versionString(), Types::UTF16String(Platform::wide(u"1.0")));
    for (TrackableMetadataSet * set :
         {static_cast<TrackableMetadataSet *>(&preface), static_cast<TrackableMetadataSet *>(&building.storage)})
        EXPECT_EQ(set->generation(), &identification);

    // Present and empty, so that they are written.
    auto const & schemes =
        dynamic_cast<Metadata::BatchElement const &>(preface.find(StructuralMetadataULs::dmSchemes()));
    ASSERT_NE(schemes.value(), nullptr);
    EXPECT_EQ(schemes.value()->size(), 0u);

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

TEST(GenericOPBuilder, TellsTheVersionOfTheLibraryIfItIsToldOne)
{
    using Types::ProductVersion;
    ProductVersion const none(0, 0, 0, 0, ProductVersion::RELEASE_UNKNOWN);
    ProductVersion const some(1, 2, 3, 4, ProductVersion::RELEASE_BETA);
    for (ProductVersion const * version : {static_cast<ProductVersion const *>(nullptr), &none, &some})
    {
        GenericOPBuilder const builder(Building::dictionary(), Platform::wide(u""), Platform::wide(u""),
                                       Platform::wide(u""), sample<Types::UUID>(), version, nullptr, false, false);
        Identification const & identification = *findPreface(*builder.metadata()).identification(0);
        ASSERT_EQ(identification.productVersion() != nullptr, version != nullptr);
        ASSERT_EQ(identification.toolkitVersion() != nullptr, version != nullptr);
        if (version == nullptr)
            continue;
        EXPECT_EQ(*identification.productVersion(), *version);
        EXPECT_EQ(identification.toolkitVersion()->major(), version == &some ? 4 : 0);
        EXPECT_EQ(identification.toolkitVersion()->patch(), version == &some ? 3 : 0);
    }
}

TEST(GenericOPBuilder, ListsEssenceContainersInOrder)
{
    char const * const multiple = "06 0E 2B 34 04 01 01 03 0D 01 03 01 02 7F 01 00";
    char const * const mpeg = "06 0E 2B 34 04 01 01 02 0D 01 03 01 02 04 60 01";
    Building building({"p", "s", "s"});
    auto & several = building.make<MultipleDescriptor>(StructuralMetadataKeys::multipleDescriptor());
    Types::UniversalLabel const label(hex(multiple).data());
    several.essenceContainer(&label);
    several.addSubDescriptor(0, &several);
    several.addSubDescriptor(1, &building.descriptor(mpeg));
    building.sources[0]->descriptor(&several);

    auto const listed = [&]
    {
        building.builder.update();
        std::vector<Bytes> labels;
        for (unsigned int i = 0; i < building.preface.essenceContainersCount(); ++i)
            labels.emplace_back(building.preface.essenceContainer(i)->rawBuffer(),
                                building.preface.essenceContainer(i)->rawBuffer() + 16);
        return labels;
    };
    Bytes const wave = hex("06 0E 2B 34 04 01 01 01 0D 01 03 01 02 06 01 00");
    EXPECT_EQ(listed(), (std::vector<Bytes>{wave, hex(mpeg), hex(multiple)}));
    building.builder.suppressMultipleWrappingsUL(true);
    EXPECT_EQ(listed(), (std::vector<Bytes>{wave, hex(mpeg)}));
    building.builder.externalEssence(true);
    EXPECT_TRUE(listed().empty());
    EXPECT_NE(dynamic_cast<Metadata::BatchElement &>(building.preface.find(StructuralMetadataULs::essenceContainers()))
                  .value(),
              nullptr);
}

TEST(GenericOPBuilder, RefusesTracksThatCantBeClips)
{
    Building building({"ps"});
    MaterialPackageProxy & package = building.addMaterial("A1");
    TrackProxy & track = *package.addTrack(0, nullptr);
    SourcePackage & source = *building.sources[0];
    auto & timeline = building.make<TimelineTrack>(StructuralMetadataKeys::timelineTrack());
    Types::Rational const rate(25, 1);

    auto & still = building.make<StaticTrack>(StructuralMetadataKeys::staticTrack());
    EXPECT_FAILURE(InvalidFormat, "tt != 0: Only Timeline Tracks are allowed", track.addClip(source, still));
    EXPECT_FAILURE(InvalidFormat, "rate != 0: Track has no Edit Rate", track.addSubClip(source, timeline, 0, 1));
    timeline.editRate(&rate);
    EXPECT_FAILURE(InvalidFormat, "seq != 0: Track has no Sequence", track.addClip(source, timeline));
    timeline.sequence(&building.make<Sequence>(StructuralMetadataKeys::sequence()));
    EXPECT_FAILURE(InvalidFormat, "dataDefinition != 0: Sequence has no Data Definition",
                   track.addClip(source, timeline));
    EXPECT_EQ(track.track().sequence()->structuralComponentsCount(), 0u);

    building.addClip(track, "A2");
    EXPECT_FAILURE(InvalidFormat, "dataDefinition_ == *dataDefinition: Adding tracks with different Data Definitions",
                   building.addClip(track, "A1"));
    EXPECT_EQ(building.complexity(), hex("01 01 09"));
}

TEST(GenericOPBuilder, RefusesToUpdateFromBrokenSources)
{
    struct Case
    {
        std::function<void(Building &)> breakIt;
        char const * message;
    };
    Types::Rational const noRate(0, 1);
    Case const cases[] = {
        {[](Building & b)
         {
             auto & time = b.make<TimecodeComponent>(StructuralMetadataKeys::timecodeComponent());
             b.track("A1").sequence()->addStructuralComponent(1, &time);
         },
         "clip != 0: The sequence contains a Structural Component that is not a Source Clip."},
        {[](Building & b) { dynamic_cast<TimelineTrack &>(b.track("A1")).editRate(nullptr); },
         "track_ -> editRate () != 0: Track has no edit rate"},
        {[&](Building & b) { dynamic_cast<TimelineTrack &>(b.track("A1")).editRate(&noRate); },
         "originalEditRate.numerator () != 0: Track edit rate is 0"},
        {[](Building & b) { b.track("A1").sequence()->dataDefinition(nullptr); },
         "definition != 0: Sequence has no Data Definition"},
        {[](Building & b) { b.track("A1").sequence(nullptr); }, "seq != 0: Track has no sequence"},
        {[](Building & b) { dynamic_cast<FileDescriptor &>(*b.sources[0]->descriptor()).essenceContainer(nullptr); },
         "ul != 0: FileDescriptor doesn't have a EssenceContainer UL"},
        {[](Building & b) { b.metadata.removeMetadataSet(Types::UUID(*b.addSource("p").track(0u)->instanceUID())); },
         "track != 0: Track is null"},
    };
    for (Case const & c : cases)
    {
        Building building({"p"});
        building.addMaterial("A1");
        c.breakIt(building);
        EXPECT_FAILURE(InvalidFormat, c.message, building.builder.update());
    }

    // A track that lies outside of all packages, which the walk doesn't see.
    Building building({"p"});
    building.addMaterial("A1");
    Track & track = building.track("A1");
    building.sources[0]->removeTrack(0);
    track.sequence()->dataDefinition(nullptr);
    EXPECT_FAILURE(InvalidFormat, "sequence_ -> dataDefinition () != 0: Sequence has no data definition",
                   building.builder.update());
    track.sequence(nullptr);
    EXPECT_FAILURE(InvalidFormat, "sequence_ != 0: Track has no sequence", building.builder.update());
}

}}}

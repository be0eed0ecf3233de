#include "OPBuilders/OPAtomAggregator.h"
#include "OPBuilders/OPAtomBuilder.h"
#include "support/BuiltMetadata.h"
#include "support/Failure.h"

namespace Vantry { namespace OPBuilders { namespace {

using namespace Tests;
using namespace Metadata::Structural;

struct Building : BuiltMetadata<OPAtomBuilder>
{
    Building() : BuiltMetadata(sharedLenientDictionary(), nullptr) {}
};

Bytes labelOf(OPAtomBuilder const & builder)
{
    unsigned char const * const label = builder.currentOP().rawBuffer();
    return Bytes(label, label + 16);
}

TEST(OPAtomBuilder, LabelTellsOfClipsAndTracksAndForgetsNone)
{
    std::tuple<char const *, char const *, unsigned char> const cases[] = {{"a clip", "A1", 0},
                                                                           {"a part", "A1:2,5", 0},
                                                                           {"two clips", "A1+A1", 1},
                                                                           {"two tracks", "A1 A2", 2},
                                                                           {"both", "A1 A2+A2", 3}};
    for (auto const & [name, tracks, complexity] : cases)
    {
        SCOPED_TRACE(name);
        Building building;
        SourcePackage & source = building.addSource("pst");
        GenericPackage & package = building.addMaterial(tracks).materialPackage();
        building.builder.topLevelFilePackage(source);
        EXPECT_EQ(building.preface.primaryPackage(), &source);

        Bytes expected = hex("06 0E 2B 34 04 01 01 02 0D 01 02 01 10 00 00 00");
        EXPECT_EQ(*building.preface.operationalPattern(), Types::UniversalLabel(expected.data()));
        building.builder.update();
        expected[13] = complexity;
        EXPECT_EQ(labelOf(building.builder), expected);
        EXPECT_EQ(*building.preface.operationalPattern(), Types::UniversalLabel(expected.data()));
        EXPECT_EQ(building.preface.essenceContainersCount(), 1u);

        while (package.tracksCount() != 1)
            package.removeTrack(0);
        building.builder.update();
        EXPECT_EQ(labelOf(building.builder), expected);
    }
}

TEST(OPAtomBuilder, AnotherMaterialPackageTakesOver)
{
    Building building;
    building.addSource("p");
    GenericPackage const & first = building.addMaterial("A1").materialPackage();
    MaterialPackage & second = building.addMaterial("A1+A1").materialPackage();
    building.builder.update();
    EXPECT_EQ(building.storage.packagesCount(), 3u);
    EXPECT_EQ(first.track(0u)->sequence()->duration(), nullptr);
    EXPECT_EQ(tracksOf(second), "1:20(0+10)(0+10) 0:20");
    EXPECT_EQ(labelOf(building.builder)[13], 0);

    building.preface.primaryPackage(&second);
    building.builder.update();
    EXPECT_EQ(labelOf(building.builder)[13], 1);
}

// Files of one set, with picture, sound and sound of 10, 20 and 30 edit units.
struct FileSet
{
    FileSet()
    {
        Int64 length = 0;
        for (Building & file : files)
        {
            file.addSource(length == 0 ? "tp" : "st", length + 10);
            file.addMaterial(length == 0 ? "A2" : "A1");
            file.builder.update();
            aggregator.addOPAtomBuilder(&file.builder);
            length += 10;
        }
    }

    MaterialPackage & material(Building & file) const
    {
        return dynamic_cast<MaterialPackage &>(*file.storage.package(1u));
    }

    Building files[3];
    OPAtomAggregator aggregator;
};

TEST(OPAtomAggregator, EachFileKnowsTheTracksOfAll)
{
    FileSet set;
    set.aggregator.commit();
    unsigned int place = 0;
    std::vector<Types::UUID> identifiers;
    for (Building & file : set.files)
    {
        MaterialPackage const & material = set.material(file);
        EXPECT_EQ(tracksOf(material), "0:" + std::to_string(10 * (place + 1)) + " 0:10(0+10) 1:20(0+20) 2:30(0+30)");
        EXPECT_EQ(*material.packageUID(), *set.material(set.files[0]).packageUID());
        EXPECT_EQ(*material.track(0u)->sequence()->dataDefinition(), DataDefinitionULs::timecode12MInactive());
        for (unsigned int other = 0; other < 3; ++other)
        {
            Track const & track = *material.track(other + 1);
            auto const & clip = dynamic_cast<SourceClip &>(*track.sequence()->structuralComponent(0));
            EXPECT_EQ(clip.sourceTrack()->value(), other);
            EXPECT_EQ(clip.sourcePackage(), other == place ? file.sources[0] : nullptr);
            EXPECT_EQ(clip.generation(), file.preface.identification(0));
            identifiers.push_back(*clip.instanceUID());
        }

        SourcePackage const & source = *file.sources[0];
        EXPECT_TRUE(isTimeCodeTrack(source.track(0u)));
        EXPECT_EQ(source.track(1u)->trackID()->value(), place);
        auto const & descriptor = dynamic_cast<FileDescriptor &>(*source.descriptor());
        EXPECT_EQ(descriptor.linkedTrack()->value(), place);
        EXPECT_EQ(descriptor.containerDuration()->value(), 10 * (++place));
    }
    std::sort(identifiers.begin(), identifiers.end());
    EXPECT_EQ(std::unique(identifiers.begin(), identifiers.end()), identifiers.end());

    set.files[1].builder.update();
    EXPECT_EQ(labelOf(set.files[1].builder)[13], 2);
}

TEST(OPAtomAggregator, NeedsMaterialPackagesOfSeveralFiles)
{
    Building one;
    one.addSource("p");
    one.addMaterial("A1");
    Building without;
    OPAtomAggregator aggregator;
    aggregator.addOPAtomBuilder(&one.builder);
    EXPECT_FAILURE(OperationNotAllowed, "opAtomBuilders_.size () > 1: Can only aggregate 2 or more OPAtomBuilder's.",
                   aggregator.commit());
    aggregator.addOPAtomBuilder(&without.builder);
    EXPECT_FAILURE(NotFound, "!packages.empty (): OPAtomBuilder has no MaterialPackage", aggregator.commit());
    EXPECT_EQ(one.track("A1").trackID()->value(), 1u);
}

}}}

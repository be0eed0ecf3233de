#include "Metadata/DMS1/ClipFramework.h"
#include "Metadata/DMS1/DMS1MetadataKeys.h"
#include "Metadata/DMS1/DMS1MetadataULs.h"
#include "Metadata/Listeners/NullMetadataListener.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/Structural/DMSegment.h"
#include "Metadata/Structural/EventTrack.h"
#include "Metadata/Structural/NetworkLocator.h"
#include "Metadata/Structural/PackageHelpers.h"
#include "Types/ISO7String.h"
#include "Utils/TimeCode.h"
#include "support/BytesSink.h"
#include "support/Failure.h"
#include "support/StructuralMetadata.h"

using namespace Vantry;
using namespace Vantry::Metadata;
using namespace Vantry::Metadata::Structural;
using namespace Vantry::Tests;

namespace {

using Seconds = Templates::Rational<Int64>;

Int64 const MOST = std::numeric_limits<Int64>::max();

// A Preface, a ContentStorage and a source package in it.
class StructuralHelpers : public testing::Test
{
protected:
    StructuralHelpers()
    {
        preface.contentStorage(&storage);
        storage.appendPackage(&package);
    }

    TimelineTrack & track(Types::UniversalLabel const & dataDefinition, Types::Rational const & editRate, Int64 origin,
                          Int64 length, unsigned int trackID = 1)
    {
        return *createTimelineTrack(*metadata, package, dataDefinition, trackID, 0, origin, editRate, length);
    }

    void timecode(TimelineTrack & owner, Int64 start, bool dropFrame)
    {
        TimecodeComponent & component = metadata.make<TimecodeComponent>();
        Types::Position const position(start);
        Types::Boolean const drop(dropFrame);
        component.startTimecode(&position);
        component.dropFrame(&drop);
        owner.sequence()->addStructuralComponent(0, &component);
    }

    template <class Descriptor>
    Descriptor & descriptor(unsigned char container, unsigned int linkedTrack = 0)
    {
        Descriptor & made = metadata.make<Descriptor>();
        Types::UniversalLabel const label = sample<Types::UniversalLabel>(container);
        made.essenceContainer(&label);
        Types::UInt32 const number(linkedTrack);
        made.linkedTrack(linkedTrack != 0 ? &number : nullptr);
        return made;
    }

    StructuralMetadata metadata;
    Preface & preface = metadata.make<Preface>();
    ContentStorage & storage = metadata.make<ContentStorage>();
    SourcePackage & package = metadata.make<SourcePackage>();

    Types::UniversalLabel const & picture = DataDefinitionULs::picture();
    Types::UniversalLabel const & audio = DataDefinitionULs::audio();
    Types::UniversalLabel const & timecode309M = DataDefinitionULs::timecode309M();
};

TEST_F(StructuralHelpers, TellTracksApart)
{
    TimelineTrack & code = track(timecode309M, {25, 1}, 0, 10);
    TimelineTrack & image = track(picture, {25, 1}, 0, 10);
    TimelineTrack & text = track(DataDefinitionULs::parsedText(), {25, 1}, 0, 10);
    TimelineTrack & sound = track(audio, {25, 1}, 0, 10);
    TimelineTrack & bare = metadata.make<TimelineTrack>();
    package.addTrack(0, &metadata.make<EventTrack>());
    package.addTrack(1, &bare);

    Templates::list<TimelineTrack *> all;
    Templates::list<TimelineTrack *> essence;
    getAllTimelineTracks(package, all);
    getAllEssenceTracks(package, essence);
    EXPECT_EQ(all, (Templates::list<TimelineTrack *>{&bare, &code, &image, &text, &sound}));
    EXPECT_EQ(essence, (Templates::list<TimelineTrack *>{&image, &sound}));
    EXPECT_EQ(getTimecodeTrack(package), &code);
}

TEST_F(StructuralHelpers, BoundTracksInSeconds)
{
    struct Case
    {
        Types::Rational editRate;
        Int64 origin, length;
        Seconds start, end;
    };
    Case const CASES[] = {
        {{25, 1}, 0, 50, {0}, {2}},
        {{30000, 1001}, 30, 30, {1001, 1000}, {2 * 1001, 1000}},
        {{1, 2}, 1, 1, {2}, {4}},
    };
    Seconds start;
    Seconds end;
    for (Case const & c : CASES)
    {
        ASSERT_TRUE(trackBoundsInSeconds(&track(picture, c.editRate, c.origin, c.length), start, end));
        EXPECT_EQ(start, c.start) << start.numerator() << '/' << start.denominator();
        EXPECT_EQ(end, c.end) << end.numerator() << '/' << end.denominator();
    }

    EXPECT_FALSE(trackBoundsInSeconds(&metadata.make<TimelineTrack>(), start, end));
    EXPECT_FALSE(trackBoundsInSeconds(&track(picture, {25, 1}, 0, -1), start, end));
    EXPECT_FALSE(trackBoundsInSeconds(&track(picture, {25, 0}, 0, 1), start, end));
    EXPECT_FALSE(trackBoundsInSeconds(&track(picture, {25, 1}, MOST, 1), start, end)) << "a sum beyond 64 bits";
    EXPECT_FALSE(trackBoundsInSeconds(&track(picture, {1, 3}, 0, MOST), start, end)) << "a product beyond 64 bits";
}

TEST_F(StructuralHelpers, MeasurePackages)
{
    TimelineTrack & code = track(timecode309M, {30000, 1001}, 0, 5);
    EXPECT_EQ(packageDurationInSeconds(package), Seconds(-1)) << "time code alone";

    track(picture, {25, 1}, -25, 50);
    track(audio, {48000, 1}, 0, 48001);
    EXPECT_EQ(packageDurationInSeconds(package), Seconds(2) + Seconds(1, 48000));
    EXPECT_FAILURE(InvalidFormat, "count != 0: Timecode track has no timecode components",
                   packageDurationAsTimeCode(package));

    timecode(code, 1800, true);
    EXPECT_EQ(packageDurationAsTimeCode(package).toFrameCounter(), 60u) << "59.9 frames";
    EXPECT_TRUE(packageDurationAsTimeCode(package).dropFrame());
    Utils::TimeCode const start = startTimecode(package);
    EXPECT_EQ(start, Utils::TimeCode(30, 0, 1, 0, 2, true, false));

    for (Types::Rational const & rate : {Types::Rational(30, 0), Types::Rational(25, 1)})
    {
        code.editRate(&rate);
        EXPECT_FALSE(startTimecode(package).isDefined()) << "no rate, or none that drops frames";
    }
}

TEST_F(StructuralHelpers, DropFrameNeedsATimecodeComponent)
{
    TimelineTrack & code = metadata.make<TimelineTrack>();
    EXPECT_FAILURE(InvalidFormat, "seq != 0: Timecode track has no sequence", isDropFrame(code));

    Sequence & sequence = metadata.make<Sequence>();
    code.sequence(&sequence);
    EXPECT_FAILURE(InvalidFormat, "count != 0: Timecode track has no timecode components", isDropFrame(code));

    SourceClip & clip = metadata.make<SourceClip>();
    sequence.addStructuralComponent(0, &clip);
    EXPECT_FAILURE(InvalidFormat, "tc != 0: Timecode component has invalid type", isDropFrame(code));

    (*metadata).removeMetadataSet(Types::UUID(*clip.instanceUID()));
    EXPECT_FAILURE(InvalidFormat, "component != 0: Timecode track has no timecode components", isDropFrame(code));

    sequence.addStructuralComponent(0, &metadata.make<TimecodeComponent>());
    EXPECT_FAILURE(InvalidFormat, "b != 0: Timecode component does not have the 'dropFrame' element",
                   isDropFrame(code));
    timecode(code, 0, true);
    EXPECT_TRUE(isDropFrame(code));
}

TEST_F(StructuralHelpers, FindDescriptorsOfTracks)
{
    TimelineTrack & image = track(picture, {25, 1}, 0, 1, 1);
    EXPECT_EQ(essenceULOfTrack(package, &image), nullptr) << "no descriptor";

    auto & video = descriptor<CDCIEssenceDescriptor>(1);
    package.descriptor(&video);
    EXPECT_EQ(fileDescriptorForTrack(package, 1), &video) << "unlinked, but the only track";

    TimelineTrack & sound = track(audio, {25, 1}, 0, 1, 2);
    EXPECT_EQ(fileDescriptorForTrack(package, 1), nullptr);
    EXPECT_EQ(essenceULOfTrack(package, &image), video.essenceContainer()) << "of the right kind";
    EXPECT_EQ(essenceULOfTrack(package, &sound), nullptr);

    auto & several = descriptor<MultipleDescriptor>(2);
    auto & stray = descriptor<WAVEAudioEssenceDescriptor>(3);
    auto & linked = descriptor<WAVEAudioEssenceDescriptor>(4, 2);
    package.descriptor(&several);
    several.addSubDescriptor(0, &stray);
    several.addSubDescriptor(1, &linked);
    several.addSubDescriptor(2, &video);
    EXPECT_EQ(fileDescriptorForTrack(package, 2), &linked);
    EXPECT_EQ(essenceULOfTrack(package, &sound), linked.essenceContainer());
    EXPECT_EQ(essenceULOfTrack(package, &image), video.essenceContainer());
}

TEST_F(StructuralHelpers, TellEssenceOutsideTheFile)
{
    auto & several = descriptor<MultipleDescriptor>(1);
    auto & nested = descriptor<MultipleDescriptor>(1);
    package.descriptor(&several);
    several.addSubDescriptor(0, &nested);
    nested.addSubDescriptor(0, &several);
    EXPECT_FALSE(isExternalEssence(*metadata, package)) << "no locator, in a circle of descriptors";

    nested.addLocator(0, &metadata.make<NetworkLocator>());
    EXPECT_FAILURE(InvalidFormat, "package.packageUID () != 0: Package has no packageUID",
                   isExternalEssence(*metadata, package));

    Types::UMID32 const umid = sample<Types::UMID32>();
    package.packageUID(&umid);
    EXPECT_TRUE(hasExternalEssence(*metadata)) << "no container in the file";

    EssenceContainerData & container = metadata.make<EssenceContainerData>();
    container.linkedPackage(&package);
    EXPECT_TRUE(hasExternalEssence(*metadata)) << "without stream";
    Types::UInt32 const bodySID(1);
    container.bodySID(&bodySID);
    EXPECT_FALSE(hasExternalEssence(*metadata));

    preface.contentStorage(nullptr);
    EXPECT_FAILURE(InvalidFormat, "contentStorage != 0: Preface has no ContentStorage",
                   isExternalEssence(*metadata, package));
}

TEST_F(StructuralHelpers, NormalizedOrderPutsMaterialAndTimeCodeFirst)
{
    auto const write = [&]
    {
        BytesSink sink;
        metadata->serialize(sink, true, PartitionMetadata::NormalizedForward, true);
    };
    TimelineTrack & image = track(picture, {25, 1}, 0, 1);
    TimelineTrack & code = track(timecode309M, {25, 1}, 0, 1);
    MaterialPackage & first = metadata.make<MaterialPackage>();
    MaterialPackage & lost = metadata.make<MaterialPackage>();
    MaterialPackage & second = metadata.make<MaterialPackage>();
    for (MaterialPackage * added : {&first, &lost, &second})
        storage.appendPackage(added);
    (*metadata).removeMetadataSet(Types::UUID(*lost.instanceUID()));

    write();
    ASSERT_EQ(storage.packagesCount(), 4u) << "a broken reference stays";
    EXPECT_EQ(storage.package(0), &first);
    EXPECT_EQ(storage.package(1), &second);
    EXPECT_EQ(storage.package(2), &package);
    EXPECT_EQ(package.track(0), &code);
    EXPECT_EQ(package.track(1), &image);

    while (storage.packagesCount() != 0)
        storage.removePackage(0);
    EXPECT_FAILURE(InvalidFormat, "contentStorage -> packagesCount () > 0: No ContentStorage packages", write());
    preface.contentStorage(nullptr);
    EXPECT_FAILURE(InvalidFormat, "contentStorage != 0: No ContentStorage", write());
}

TEST_F(StructuralHelpers, HangAClipFrameworkOnATrack)
{
    using namespace DMS1;
    auto const textOf = [](MetadataSet & set, Types::UniversalLabel const & label)
    {
        Types::SimpleDataType const & value = *dynamic_cast<SimpleElement &>(set.find(label)).value();
        return std::string(value.rawBuffer(), value.rawBuffer() + value.serializedSize());
    };
    TimelineTrack & description = track(DataDefinitionULs::descriptiveMetadata(), {25, 1}, 0, 1);
    addSourceClip(*metadata, description.sequence(), DataDefinitionULs::descriptiveMetadata(), 0, 1);

    MetadataSet & framework = *createClipFramework(*metadata, &description, "de", ClipKindGraphic);
    EXPECT_EQ(framework.key(), DMS1MetadataKeys::clipFramework());
    EXPECT_EQ(textOf(framework, DMS1MetadataULs::frameworkExtendedTextLanguageCode()), std::string("de\0", 3));
    EXPECT_EQ(textOf(framework, DMS1MetadataULs::clipKind()), std::string("\0G\0r\0a\0p\0h\0i\0c\0\0", 16));

    auto & segment = dynamic_cast<DMSegment &>(*description.sequence()->structuralComponent(0));
    EXPECT_EQ(segment.dmFramework(), &framework);
    EXPECT_EQ(*segment.dataDefinition(), DataDefinitionULs::descriptiveMetadata());
    EXPECT_EQ(segment.duration(), nullptr);

    EXPECT_FAILURE(InvalidFormat, "sequence != 0: Track has no sequence",
                   createClipFramework(*metadata, &metadata.make<TimelineTrack>(), "", ClipKindStill));
}

}

#include "DataIO/DataSink.h"
#include "Exceptions/InvalidChange.h"
#include "Exceptions/NotFound.h"
#include "MetaMetadata/MetaAttribute.h"
#include "Metadata/Element.h"
#include "Metadata/Structural/AES3AudioEssenceDescriptor.h"
#include "Metadata/Structural/ANCPacketsDescriptor.h"
#include "Metadata/Structural/CDCIEssenceDescriptor.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/DMSegment.h"
#include "Metadata/Structural/DMSourceClip.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/EventTrack.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/GenericDataEssenceDescriptor.h"
#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/JPEG2000PictureSubDescriptor.h"
#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "Metadata/Structural/MPEGAudioDescriptor.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/NetworkLocator.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/RGBAEssenceDescriptor.h"
#include "Metadata/Structural/SMPTE331MTimeDateItemDescriptor.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SetReference.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StaticTrack.h"
#include "Metadata/Structural/TextLocator.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/UnknownChunkSet.h"
#include "Metadata/Structural/VBIDataDescriptor.h"
#include "Metadata/Structural/Visitors/GetMetadataSetVisitor.h"
#include "Metadata/Structural/Visitors/MetadataSetVisitor.h"
#include "Metadata/Structural/WAVEAudioEssenceDescriptor.h"
#include "Metadata/Structural/WAVEAudioPhysicalDescriptor.h"
#include "support/BytesSink.h"
#include "support/StructuralMetadata.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <typeinfo>

using namespace Vantry;
using namespace Vantry::Metadata;
using namespace Vantry::Metadata::Structural;
using namespace Vantry::Tests;

namespace {

// The wire form, without tag and length, of what a set holds beside its
// identifier: that must be one attribute, and this one. Empty for nothing.
Bytes only(PartitionMetadata & metadata, MetadataSet const & set, char const * label)
{
    metadata.generateLocalTags();
    Bytes bytes;
    for (auto const & entry : set)
        if (!entry.second->empty() && entry.first != MetadataULs::instanceUID())
        {
            EXPECT_EQ(entry.first, attributeLabel(label));
            EXPECT_TRUE(bytes.empty()) << "a second attribute";
            BytesSink sink;
            entry.second->serialize(sink, metadata.partitionDictionary(), 2);
            bytes.insert(bytes.end(), sink.bytes().begin() + 4, sink.bytes().end());
        }
    return bytes;
}

Bytes wire(Types::SimpleDataType const & value)
{
    return Bytes(value.rawBuffer(), value.rawBuffer() + value.serializedSize());
}

Bytes wire(Bytes const & first, Bytes const & second)
{
    Bytes const size = {0, 0, 0, static_cast<unsigned char>(first.size())};
    return hex("00 00 00 02") + size + first + second;
}

template <class Type>
void expectSample(Type const * value, unsigned char first)
{
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(wire(*value), countedBytes(first).first(value->serializedSize()));
}

bool isRequired(MetadataSet const & set, char const * label)
{
    auto const attribute = set.find(attributeLabel(label)).metaAttribute();
    return attribute.dynamicCast<MetaMetadata::MetaAttribute const>()->requiredStatus() ==
           MetaMetadata::AttributeRequiredStatus::Req;
}

template <class Class, class Type>
void checkValue(StructuralMetadata & metadata, char const * label, Type const * (*get)(Class const &),
                void (*set)(Class &, Type const *))
{
    Class & owner = metadata.make<Class>();
    EXPECT_EQ(get(owner), nullptr);

    Type const value = sample<Type>();
    set(owner, &value);
    EXPECT_EQ(only(*metadata, owner, label), countedBytes(1).first(value.serializedSize()));
    expectSample(get(owner), 1);

    if (isRequired(owner, label))
    {
        EXPECT_THROW(set(owner, nullptr), Exceptions::InvalidChange);
        return;
    }
    set(owner, nullptr);
    EXPECT_EQ(only(*metadata, owner, label), Bytes());
    EXPECT_EQ(get(owner), nullptr);
}

// How an attribute with several values or references is used.
template <class Class, class Item, class Added>
struct Several
{
    Item * (*get)(Class const &, unsigned int);
    unsigned int (*count)(Class const &);
    void (*add)(Class &, unsigned int, Added);
    void (*remove)(Class &, unsigned int);
};

template <class Class, class Type>
void checkValues(StructuralMetadata & metadata, char const * label, bool isArray,
                 Several<Class, Type const, Type const &> const & values)
{
    Class & owner = metadata.make<Class>();
    EXPECT_EQ(values.count(owner), 0u);
    EXPECT_EQ(values.get(owner, 0), nullptr);

    Type const first = sample<Type>(1);
    Type const second = sample<Type>(2);
    values.add(owner, 0, isArray ? second : first);
    values.add(owner, 0, isArray ? first : second);
    EXPECT_EQ(only(*metadata, owner, label), wire(wire(first), wire(second)));
    EXPECT_EQ(values.count(owner), 2u);
    expectSample(values.get(owner, 1), 2);
    EXPECT_EQ(values.get(owner, 2), nullptr);

    values.remove(owner, 0);
    ASSERT_EQ(values.count(owner), 1u);
    expectSample(values.get(owner, 0), 2);
}

template <class Class, class Target>
void checkReference(StructuralMetadata & metadata, char const * label, Target * (*get)(Class const &),
                    void (*set)(Class &, Target *))
{
    Class & owner = metadata.make<Class>();
    EXPECT_EQ(get(owner), nullptr);

    Target & target = metadata.make<Target>();
    set(owner, &target);
    EXPECT_EQ(only(*metadata, owner, label), wire(*target.instanceUID()));
    EXPECT_EQ(get(owner), &target);

    set(owner, nullptr);
    EXPECT_EQ(only(*metadata, owner, label), Bytes());
}

template <class Class, class Target>
void checkReferences(StructuralMetadata & metadata, char const * label, bool isArray,
                     Several<Class, Target, Target *> const & references)
{
    Class & owner = metadata.make<Class>();
    EXPECT_EQ(references.count(owner), 0u);
    EXPECT_EQ(references.get(owner, 0), nullptr);

    Target & first = metadata.make<Target>();
    Target & second = metadata.make<Target>();
    references.add(owner, 0, isArray ? &second : &first);
    references.add(owner, 0, isArray ? &first : &second);
    EXPECT_EQ(only(*metadata, owner, label), wire(wire(*first.instanceUID()), wire(*second.instanceUID())));
    EXPECT_EQ(references.count(owner), 2u);
    EXPECT_EQ(references.get(owner, 1), &second);
    EXPECT_EQ(references.get(owner, 2), nullptr);

    unsigned int const sets = metadata->size();
    references.remove(owner, 0);
    EXPECT_EQ(references.get(owner, 0), &second);
    EXPECT_EQ(metadata->size(), sets) << "what was referred to stays";
}

struct Row
{
    char const * name;
    std::function<void(StructuralMetadata &)> check;
};

// NOLINTBEGIN(bugprone-macro-parentheses): names and types stand without
#define ROW(Class, name, ...)                             \
    {#Class "::" #name, [](StructuralMetadata & metadata) \
     {                                                    \
         __VA_ARGS__;                                     \
     }},
#define GET(Class, name, Item)      \
    [](Class const & set) -> Item * \
    {                               \
        return set.name();          \
    }
#define SET(Class, name, Value)  \
    [](Class & set, Value value) \
    {                            \
        set.name(value);         \
    }
#define AT(Class, name, Item)                           \
    [](Class const & set, unsigned int index) -> Item * \
    {                                                   \
        return set.name(index);                         \
    }
#define COUNT(Class, names)        \
    [](Class const & set)          \
    {                              \
        return set.names##Count(); \
    }
#define ADD(Class, Name, Item)                     \
    [](Class & set, unsigned int index, Item item) \
    {                                              \
        set.add##Name(index, item);                \
    }
#define APPEND(Class, Name, Item)            \
    [](Class & set, unsigned int, Item item) \
    {                                        \
        set.append##Name(item);              \
    }
#define REMOVE(Class, Name)             \
    [](Class & set, unsigned int index) \
    {                                   \
        set.remove##Name(index);        \
    }
#define VALUES_ROW(Class, name, Name, names, Type, label, isArray, add) \
    ROW(Class, name,                                                    \
        checkValues<Class, Types::Type>(                                \
            metadata, label, isArray,                                   \
            {AT(Class, name, Types::Type const), COUNT(Class, names), add, REMOVE(Class, Name)}))
#define REFERENCES_ROW(Class, name, Name, names, Target, label, isArray, add) \
    ROW(Class, name,                                                          \
        checkReferences<Class, Target>(metadata, label, isArray,              \
                                       {AT(Class, name, Target), COUNT(Class, names), add, REMOVE(Class, Name)}))

#define VALUE(Class, name, Type, label)                                                      \
    ROW(Class, name,                                                                         \
        checkValue<Class, Types::Type>(metadata, label, GET(Class, name, Types::Type const), \
                                       SET(Class, name, Types::Type const *)))
#define REFERENCE(Class, name, Target, label) \
    ROW(Class, name,                          \
        checkReference<Class, Target>(metadata, label, GET(Class, name, Target), SET(Class, name, Target *)))
#define ARRAY(Class, name, Name, names, Type, label) \
    VALUES_ROW(Class, name, Name, names, Type, label, true, ADD(Class, Name, Types::Type const &))
#define BATCH(Class, name, Name, names, Type, label) \
    VALUES_ROW(Class, name, Name, names, Type, label, false, APPEND(Class, Name, Types::Type const &))
#define REFERENCE_ARRAY(Class, name, Name, names, Target, label) \
    REFERENCES_ROW(Class, name, Name, names, Target, label, true, ADD(Class, Name, Target *))
#define REFERENCE_BATCH(Class, name, Name, names, Target, label) \
    REFERENCES_ROW(Class, name, Name, names, Target, label, false, APPEND(Class, Name, Target *))
#define SOURCE_TRACK(Type, label)                                                                             \
    ROW(SourceClip, sourceTrack,                                                                              \
        checkValue<SourceClip, Types::Type>(metadata, label, GET(SourceClip, sourceTrack, Types::Type const), \
                                            SET(SourceClip, sourceTrackID, Types::Type const *)))
#define SEGMENT_TRACKS(Type, label) \
    VALUES_ROW(DMSegment, tracks, Tracks, tracks, Type, label, false, APPEND(DMSegment, Track, Types::Type const &))
#define GENERATION(Type, label) ROW(TrackableMetadataSet, generation, checkGeneration(metadata, label))
// NOLINTEND(bugprone-macro-parentheses)

void checkGeneration(StructuralMetadata & metadata, char const * label)
{
    TrackableMetadataSet & set = metadata.make<TrackableMetadataSet>();
    Identification & identification = metadata.make<Identification>();
    Types::UUID const generation = sample<Types::UUID>();
    identification.thisGenerationUID(&generation);

    set.generation(&identification);
    EXPECT_EQ(only(*metadata, set, label), wire(generation));
    EXPECT_EQ(set.generation(), &identification);

    set.generation(nullptr);
    EXPECT_EQ(only(*metadata, set, label), Bytes());
    EXPECT_EQ(set.generation(), nullptr);
}

Row const ROWS[] = {
#include "Metadata/Structural/AttributeRows.h"
};

TEST(StructuralAccessors, EachReachesItsAttribute)
{
    StructuralMetadata metadata;
    for (Row const & row : ROWS)
    {
        SCOPED_TRACE(row.name);
        row.check(metadata);
    }
    EXPECT_EQ(std::size(ROWS), 183u);
}

TEST(StructuralAccessors, GetNothingWhereTheSchemaHasNoSuchAttribute)
{
    StructuralMetadata metadata(MetadataULs::packages());
    ContentStorage & storage = metadata.make<ContentStorage>();
    EXPECT_EQ(storage.packagesCount(), 0u);
    EXPECT_EQ(storage.package(0), nullptr);
    EXPECT_THROW(storage.appendPackage(&metadata.make<GenericPackage>()), Exceptions::NotFound);
    EXPECT_NO_THROW(setReferencedMetadataSet(&storage, MetadataULs::packages(), &storage));
}

TEST(StructuralAccessors, FollowIdentifiersOfPackagesAndTracks)
{
    StructuralMetadata metadata;
    Types::UMID32 const umid = sample<Types::UMID32>();
    GenericPackage & package = metadata.make<GenericPackage>();
    SourceClip & clip = metadata.make<SourceClip>();
    EssenceContainerData & container = metadata.make<EssenceContainerData>();
    ContentStorage & storage = metadata.make<ContentStorage>();
    EXPECT_EQ(clip.sourcePackage(), nullptr);
    EXPECT_EQ(storage.package(umid), nullptr);

    package.packageUID(&umid);
    clip.sourcePackage(&package);
    container.linkedPackage(&package);
    EXPECT_EQ(*clip.sourcePackageUID(), umid);
    EXPECT_EQ(clip.sourcePackage(), &package);
    EXPECT_EQ(container.linkedPackage(), &package);
    EXPECT_EQ(storage.package(umid), &package);
    EXPECT_EQ(storage.essenceContainerData(umid), &container);

    clip.sourcePackage(nullptr);
    EXPECT_EQ(clip.sourcePackageUID(), nullptr);

    Track & anonymous = metadata.make<Track>();
    Track & second = metadata.make<Track>();
    Types::UInt32 const number = 2;
    second.trackID(&number);
    package.addTrack(0, &anonymous);
    package.addTrack(1, &second);
    EXPECT_EQ(package.track(number), &second);
    EXPECT_EQ(package.track(Types::UInt32(1)), nullptr);

    clip.sourceTrack(&second);
    EXPECT_EQ(*clip.sourceTrack(), number);
    clip.sourceTrack(&anonymous);
    EXPECT_EQ(clip.sourceTrack(), nullptr);
}

// Visitors that know nothing of these classes.
struct AnyVisitor : Metadata::Visitors::NonConstMetadataSetVisitor
{
    void visit(MetadataSet & set) override { visited = &set; }

    MetadataSet * visited = nullptr;
};

struct AnyConstVisitor : Metadata::Visitors::MetadataSetVisitor
{
    void visit(MetadataSet const & set) override { visited = &set; }

    MetadataSet const * visited = nullptr;
};

template <class Set>
MetadataSet * visitedAs(MetadataSet & set)
{
    Structural::Visitors::GetMetadataSetVisitor<Set> visitor;
    set.accept(visitor);
    return visitor.set;
}

template <class Set, class Base>
void checkClass(StructuralMetadata & metadata, KLV::Key const & key)
{
    MetadataSet & set = *metadata->createMetadataSet(key);
    EXPECT_EQ(typeid(set), typeid(Set));
    EXPECT_EQ(visitedAs<Set>(set), &set);
    EXPECT_EQ(visitedAs<Base>(set), &set);
    EXPECT_EQ(visitedAs<MetadataSet>(set), &set);
    AnyVisitor any;
    set.accept(any);
    EXPECT_EQ(any.visited, &set);
    AnyConstVisitor anyConst;
    static_cast<MetadataSet const &>(set).accept(anyConst);
    EXPECT_EQ(anyConst.visited, &set);
}

TEST(StructuralClasses, SetsAreOfTheClassOfTheirKey)
{
    using namespace StructuralMetadataKeys;
    StructuralMetadata metadata;
    checkClass<Sequence, TrackableMetadataSet>(metadata, sequence());
    checkClass<SourceClip, StructuralComponent>(metadata, sourceClip());
    checkClass<TimecodeComponent, StructuralComponent>(metadata, timecodeComponent());
    checkClass<ContentStorage, TrackableMetadataSet>(metadata, contentStorage());
    checkClass<EssenceContainerData, TrackableMetadataSet>(metadata, essenceContainerData());
    checkClass<FileDescriptor, GenericDescriptor>(metadata, fileDescriptor());
    checkClass<GenericPictureEssenceDescriptor, FileDescriptor>(metadata, genericPictureEssenceDescriptor());
    checkClass<CDCIEssenceDescriptor, GenericPictureEssenceDescriptor>(metadata, cdciEssenceDescriptor());
    checkClass<RGBAEssenceDescriptor, GenericPictureEssenceDescriptor>(metadata, rgbaEssenceDescriptor());
    checkClass<Preface, TrackableMetadataSet>(metadata, preface());
    checkClass<Identification, MetadataSet>(metadata, identification());
    checkClass<NetworkLocator, Locator>(metadata, networkLocator());
    checkClass<TextLocator, Locator>(metadata, textLocator());
    checkClass<MaterialPackage, GenericPackage>(metadata, materialPackage());
    checkClass<SourcePackage, GenericPackage>(metadata, sourcePackage());
    checkClass<EventTrack, Track>(metadata, eventTrack());
    checkClass<StaticTrack, Track>(metadata, staticTrack());
    checkClass<TimelineTrack, Track>(metadata, timelineTrack());
    checkClass<DMSegment, StructuralComponent>(metadata, dmSegment());
    checkClass<GenericSoundEssenceDescriptor, FileDescriptor>(metadata, genericSoundEssenceDescriptor());
    checkClass<GenericDataEssenceDescriptor, FileDescriptor>(metadata, genericDataEssenceDescriptor());
    checkClass<MultipleDescriptor, FileDescriptor>(metadata, multipleDescriptor());
    checkClass<DMSourceClip, SourceClip>(metadata, dmSourceClip());
    checkClass<SMPTE331MTimeDateItemDescriptor, FileDescriptor>(metadata, smpte331MTimeDateItemDescriptor());
    checkClass<AES3AudioEssenceDescriptor, WAVEAudioEssenceDescriptor>(metadata, aes3AudioEssenceDescriptor());
    checkClass<WAVEAudioEssenceDescriptor, GenericSoundEssenceDescriptor>(metadata, waveAudioEssenceDescriptor());
    checkClass<UnknownChunkSet, TrackableMetadataSet>(metadata, unknownChunkSet());
    checkClass<WAVEAudioPhysicalDescriptor, PhysicalDescriptor>(metadata, waveAudioPhysicalDescriptor());
    checkClass<MPEG2VideoDescriptor, CDCIEssenceDescriptor>(metadata, mpeg2VideoDescriptor());
    checkClass<JPEG2000PictureSubDescriptor, SubDescriptor>(metadata, jpeg2000PictureSubDescriptor());
    checkClass<VBIDataDescriptor, GenericDataEssenceDescriptor>(metadata, vbiDataDescriptor());
    checkClass<ANCPacketsDescriptor, GenericDataEssenceDescriptor>(metadata, ancPacketsDescriptor());
    checkClass<MPEGAudioDescriptor, GenericSoundEssenceDescriptor>(metadata, mpegAudioDescriptor());

    MetadataSet & framework = *metadata->createMetadataSet(cryptographicFramework());
    EXPECT_EQ(typeid(framework), typeid(MetadataSet));
    EXPECT_EQ(visitedAs<Preface>(framework), nullptr);
}

}

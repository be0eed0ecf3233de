#include "DataIO/DataSink.h"
#include "Exceptions/InvalidChange.h"
#include "MetaMetadata/MetaAttribute.h"
#include "Metadata/Element.h"
#include "Metadata/Structural/AES3AudioEssenceDescriptor.h"
#include "Metadata/Structural/ANCPacketsDescriptor.h"
#include "Metadata/Structural/DMSegment.h"
#include "Metadata/Structural/DMSourceClip.h"
#include "Metadata/Structural/EventTrack.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/GenericDataEssenceDescriptor.h"
#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Metadata/Structural/JPEG2000PictureSubDescriptor.h"
#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "Metadata/Structural/MPEGAudioDescriptor.h"
#include "Metadata/Structural/NetworkLocator.h"
#include "Metadata/Structural/RGBAEssenceDescriptor.h"
#include "Metadata/Structural/SMPTE331MTimeDateItemDescriptor.h"
#include "Metadata/Structural/StaticTrack.h"
#include "Metadata/Structural/TextLocator.h"
#include "Metadata/Structural/UnknownChunkSet.h"
#include "Metadata/Structural/VBIDataDescriptor.h"
#include "Metadata/Structural/Visitors/GetMetadataSetVisitor.h"
#include "Metadata/Structural/WAVEAudioPhysicalDescriptor.h"
#include "support/BytesSink.h"
#include "support/StructuralMetadata.h"

#include <gtest/gtest.h>

#include <functional>

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
    EXPECT_EQ(wire(*value), counting(32, first).first(value->serializedSize()));
}

bool isRequired(MetadataSet const & set, char const * label)
{
    auto const attribute = set.find(attributeLabel(label)).metaAttribute();
    return attribute.dynamicCast<MetaMetadata::MetaAttribute const>()->requiredStatus() ==
           MetaMetadata::AttributeRequiredStatus::Req;
}

template <class Class, class Type>
void checkValue(StructuralMetadata & metadata, char const * label, Type const * (Class::*get)() const,
                void (Class::*set)(Type const *))
{
    Class & owner = metadata.make<Class>();
    EXPECT_EQ((owner.*get)(), nullptr);

    Type const value = sample<Type>();
    (owner.*set)(&value);
    EXPECT_EQ(only(*metadata, owner, label), counting(32, 1).first(value.serializedSize()));
    expectSample((owner.*get)(), 1);

    if (isRequired(owner, label))
    {
        EXPECT_THROW((owner.*set)(nullptr), Exceptions::InvalidChange);
        return;
    }
    (owner.*set)(nullptr);
    EXPECT_EQ(only(*metadata, owner, label), Bytes());
    EXPECT_EQ((owner.*get)(), nullptr);
}

// How an attribute with several values or references is used.
template <class Class, class Item, class Added>
struct Several
{
    Item * (Class::*item)(unsigned int) const;
    unsigned int (Class::*size)() const;
    void (Class::*insert)(unsigned int, Added);
    void (Class::*append)(Added); // where there is no insert
    void (Class::*erase)(unsigned int);

    Item * get(Class const & set, unsigned int index) const { return (set.*item)(index); }
    unsigned int count(Class const & set) const { return (set.*size)(); }
    void remove(Class & set, unsigned int index) const { (set.*erase)(index); }

    void add(Class & set, Added first, Added second) const
    {
        if (insert != nullptr)
        {
            (set.*insert)(0, second);
            (set.*insert)(0, first);
            return;
        }
        (set.*append)(first);
        (set.*append)(second);
    }
};

template <class Class, class Type>
void checkValues(StructuralMetadata & metadata, char const * label,
                 Several<Class, Type const, Type const &> const & values)
{
    Class & owner = metadata.make<Class>();
    EXPECT_EQ(values.count(owner), 0u);
    EXPECT_EQ(values.get(owner, 0), nullptr);

    Type const first = sample<Type>(1);
    Type const second = sample<Type>(2);
    values.add(owner, first, second);
    EXPECT_EQ(only(*metadata, owner, label), wire(wire(first), wire(second)));
    EXPECT_EQ(values.count(owner), 2u);
    expectSample(values.get(owner, 1), 2);
    EXPECT_EQ(values.get(owner, 2), nullptr);

    values.remove(owner, 0);
    ASSERT_EQ(values.count(owner), 1u);
    expectSample(values.get(owner, 0), 2);
}

template <class Class, class Target>
void checkReference(StructuralMetadata & metadata, char const * label, Target * (Class::*get)() const,
                    void (Class::*set)(Target *))
{
    Class & owner = metadata.make<Class>();
    EXPECT_EQ((owner.*get)(), nullptr);

    Target & target = metadata.make<Target>();
    (owner.*set)(&target);
    EXPECT_EQ(only(*metadata, owner, label), wire(*target.instanceUID()));
    EXPECT_EQ((owner.*get)(), &target);

    (owner.*set)(nullptr);
    EXPECT_EQ(only(*metadata, owner, label), Bytes());
}

template <class Class, class Target>
void checkReferences(StructuralMetadata & metadata, char const * label,
                     Several<Class, Target, Target *> const & references)
{
    Class & owner = metadata.make<Class>();
    EXPECT_EQ(references.count(owner), 0u);
    EXPECT_EQ(references.get(owner, 0), nullptr);

    Target & first = metadata.make<Target>();
    Target & second = metadata.make<Target>();
    references.add(owner, &first, &second);
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
#define VALUE(Class, name, Type, label) \
    ROW(Class, name, checkValue<Class, Types::Type>(metadata, label, &Class::name, &Class::name))
#define REFERENCE(Class, name, Target, label) \
    ROW(Class, name, checkReference<Class, Target>(metadata, label, &Class::name, &Class::name))
#define ARRAY(Class, name, Name, names, Type, label) \
    ROW(Class, name,                                 \
        checkValues<Class, Types::Type>(             \
            metadata, label, {&Class::name, &Class::names##Count, &Class::add##Name, nullptr, &Class::remove##Name}))
#define BATCH(Class, name, Name, names, Type, label) \
    ROW(Class, name,                                 \
        checkValues<Class, Types::Type>(             \
            metadata, label,                         \
            {&Class::name, &Class::names##Count, nullptr, &Class::append##Name, &Class::remove##Name}))
#define REFERENCE_ARRAY(Class, name, Name, names, Target, label) \
    ROW(Class, name,                                             \
        checkReferences<Class, Target>(                          \
            metadata, label, {&Class::name, &Class::names##Count, &Class::add##Name, nullptr, &Class::remove##Name}))
#define REFERENCE_BATCH(Class, name, Name, names, Target, label) \
    ROW(Class, name,                                             \
        checkReferences<Class, Target>(                          \
            metadata, label,                                     \
            {&Class::name, &Class::names##Count, nullptr, &Class::append##Name, &Class::remove##Name}))
#define SOURCE_TRACK(Type, label) \
    ROW(SourceClip, sourceTrack,  \
        checkValue<SourceClip, Types::Type>(metadata, label, &SourceClip::sourceTrack, &SourceClip::sourceTrackID))
#define SEGMENT_TRACKS(Type, label)                                                                \
    ROW(DMSegment, tracks,                                                                         \
        checkValues<DMSegment, Types::Type>(metadata, label,                                       \
                                            {&DMSegment::tracks, &DMSegment::tracksCount, nullptr, \
                                             &DMSegment::appendTrack, &DMSegment::removeTracks}))
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

TEST(StructuralAccessors, FollowIdentifiersOfPackagesAndTracks)
{
    StructuralMetadata metadata;
    Types::UMID32 const umid = sample<Types::UMID32>();
    GenericPackage & package = metadata.make<GenericPackage>();
    SourceClip & clip = metadata.make<SourceClip>();
    EssenceContainerData & container = metadata.make<EssenceContainerData>();
    ContentStorage & storage = metadata.make<ContentStorage>();

    package.packageUID(&umid);
    clip.sourcePackage(&package);
    container.linkedPackage(&package);
    EXPECT_EQ(*clip.sourcePackageUID(), umid);
    EXPECT_EQ(clip.sourcePackage(), &package);
    EXPECT_EQ(container.linkedPackage(), &package);
    EXPECT_EQ(storage.package(umid), &package);
    EXPECT_EQ(storage.essenceContainerData(umid), &container);

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
}

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
}

// Where no attribute of its own tells the class, or one class stands on
// another that has a key as well.
TEST(StructuralClasses, SetsAreOfTheClassOfTheirKey)
{
    using namespace StructuralMetadataKeys;
    StructuralMetadata metadata;
    checkClass<FileDescriptor, GenericDescriptor>(metadata, fileDescriptor());
    checkClass<GenericPictureEssenceDescriptor, FileDescriptor>(metadata, genericPictureEssenceDescriptor());
    checkClass<CDCIEssenceDescriptor, GenericPictureEssenceDescriptor>(metadata, cdciEssenceDescriptor());
    checkClass<MaterialPackage, GenericPackage>(metadata, materialPackage());
    checkClass<StaticTrack, Track>(metadata, staticTrack());
    checkClass<GenericSoundEssenceDescriptor, FileDescriptor>(metadata, genericSoundEssenceDescriptor());
    checkClass<GenericDataEssenceDescriptor, FileDescriptor>(metadata, genericDataEssenceDescriptor());
    checkClass<DMSourceClip, SourceClip>(metadata, dmSourceClip());
    checkClass<AES3AudioEssenceDescriptor, WAVEAudioEssenceDescriptor>(metadata, aes3AudioEssenceDescriptor());
    checkClass<WAVEAudioEssenceDescriptor, GenericSoundEssenceDescriptor>(metadata, waveAudioEssenceDescriptor());
    checkClass<MPEG2VideoDescriptor, CDCIEssenceDescriptor>(metadata, mpeg2VideoDescriptor());
    checkClass<VBIDataDescriptor, GenericDataEssenceDescriptor>(metadata, vbiDataDescriptor());
    checkClass<ANCPacketsDescriptor, GenericDataEssenceDescriptor>(metadata, ancPacketsDescriptor());
    checkClass<MPEGAudioDescriptor, GenericSoundEssenceDescriptor>(metadata, mpegAudioDescriptor());

    MetadataSet & framework = *metadata->createMetadataSet(cryptographicFramework());
    EXPECT_EQ(typeid(framework), typeid(MetadataSet));
    EXPECT_EQ(visitedAs<Preface>(framework), nullptr);
}

}

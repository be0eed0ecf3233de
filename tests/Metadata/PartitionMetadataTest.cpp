#include "Metadata/PartitionMetadata.h"

#include "Metadata/BatchReferenceElement.h"
#include "Metadata/DarkMetadataSet.h"
#include "Metadata/DarkParsedGroup.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Types/UInt32.h"
#include "support/ChangeLog.h"
#include "support/Failure.h"

#include <gmock/gmock.h>

namespace Vantry { namespace Metadata { namespace {

using namespace Tests;
using testing::ElementsAre;
using testing::IsEmpty;
using Order = PartitionMetadata::SerializationOrder;
using Listener = Templates::SharedPtr<PartitionMetadataListener>;

KLV::Key keyOf(char const * text)
{
    return KLV::Key(hex(text).data());
}

KLV::Key const DESCRIPTIVE = keyOf("06 0E 2B 34 02 53 01 01 0D 01 04 01 01 01 01 00");
KLV::Key const EXPERIMENTAL = keyOf("06 0E 2B 34 02 53 01 01 0F 01 01 01 01 01 01 00");
// One byte for tags and for lengths.
KLV::Key const DARK = keyOf("06 0E 2B 34 02 23 01 01 0D 01 01 01 01 01 7D 00");

// The triplet of an instance identifier.
Bytes identifier(unsigned int number)
{
    return hex("3C 0A 00 10") + serialized(numberedUUID(number));
}

void setNumber(MetadataSet & set, Platform::UInt32 number)
{
    elementOf<SimpleElement>(set, NUMBER)
        .set(Templates::auto_ptr<Types::SimpleDataType>(new Types::UInt32(number)), false);
}

// The numbers of written sets in their order. The primer pack and dark sets
// have numbers of their own.
unsigned int const PRIMER = 1000;
unsigned int const DARK_SET = 2000;

std::vector<unsigned int> readNumbers(Schema const & schema, Bytes const & bytes)
{
    std::vector<unsigned int> numbers;
    Partition again(schema);
    BytesSource source(bytes);
    KLV::Reader reader(source);
    while (!source.endOfStream())
    {
        UInt64 skipped = 0;
        auto const next = reader.nextKLV(skipped, 0);
        bool const isPrimer = Packs::isPrimerPack(next->key());
        MetadataSet const * const set = isPrimer ? nullptr : again.metadata.load(*next);
        numbers.push_back(isPrimer ? PRIMER : set == nullptr ? DARK_SET : numberOf(*set));
    }
    return numbers;
}

Templates::vector<MetadataSet *> all(PartitionMetadata const & metadata)
{
    Templates::vector<MetadataSet *> sets;
    for (auto const & entry : metadata)
        sets.push_back(entry.second);
    return sets;
}

TEST(PartitionMetadata, LoadsPackets)
{
    Partition partition;
    MetadataSet * const second = partition.load(packet(strangeKey(), identifier(2)));
    MetadataSet * const third = partition.load(packet(nodeKey(), identifier(3)));
    MetadataSet * const first = partition.load(packet(nodeKey(), identifier(1)));
    EXPECT_EQ(partition.load(packet(DARK, hex("01 02"))), nullptr);

    EXPECT_THAT(all(partition.metadata), ElementsAre(second, third, first));
    EXPECT_THAT(numbersOf(partition.metadata.find(nodeKey())), ElementsAre(3, 1));
    EXPECT_THAT(partition.metadata.find(DESCRIPTIVE), IsEmpty());
    EXPECT_EQ(partition.metadata.size(), 3U);
    EXPECT_NE(dynamic_cast<DarkParsedGroup *>(second), nullptr);
    EXPECT_EQ(partition.find(2), second);
    EXPECT_THROW(partition.load(packet(nodeKey(), identifier(4) + hex("01 10 00"))), Exceptions::InvalidLength);
    EXPECT_EQ(partition.find(4), nullptr);
    ASSERT_EQ(std::distance(partition.metadata.darkBegin(), partition.metadata.darkEnd()), 1);
    EXPECT_EQ(serialized(**partition.metadata.darkBegin()), packet(DARK, hex("01 02")));
}

TEST(PartitionMetadata, CreatesAndRemovesSets)
{
    Partition partition;
    partition.schema.add(DESCRIPTIVE, {});

    MetadataSet & set = *partition.metadata.createMetadataSet(nodeKey());
    Types::UUID const instanceUID = *set.instanceUID();
    EXPECT_THAT(partition.metadata.find(MetadataULs::instanceUID(), instanceUID), ElementsAre(&set));
    EXPECT_FAILURE(NotFound,
                   "A MetaMetadataSet with Key 06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.7d.00 was not found in the "
                   "Dictionary.",
                   partition.metadata.createMetadataSet(strangeKey()));
    EXPECT_FAILURE(NotFound,
                   "InstanceUID not found in Metadata Set with key 06.0e.2b.34.02.53.01.01.0d.01.04.01.01.01.01.00 "
                   "Check Metadata Set builder.",
                   partition.metadata.createMetadataSet(DESCRIPTIVE));

    EXPECT_TRUE(partition.metadata.removeMetadataSet(instanceUID));
    EXPECT_FALSE(partition.metadata.removeMetadataSet(instanceUID));
    EXPECT_THAT(partition.metadata.find(MetadataULs::instanceUID(), instanceUID), IsEmpty());
    EXPECT_EQ(partition.metadata.size(), 0U);
}

// A Preface that owns a ContentStorage, which owns sets of all kinds.
class PartitionMetadataOrders : public testing::Test
{
protected:
    PartitionMetadataOrders() : partition(schema())
    {
        own(partition.preface(1), Structural::StructuralMetadataULs::contentStorage(), 2);
        auto & storage = partition.add(Structural::StructuralMetadataKeys::contentStorage(), 2);
        for (unsigned int package : {3, 6, 12})
            elementOf<BatchReferenceElement>(storage, MetadataULs::packages())
                .appendUnverifiedReference(referenceTo<Types::StrongReference>(package));
        MetadataSet & third = partition.node(3);
        // Nobody has 99.
        Partition::ownAll(third, {4, 99, 5});
        Partition::own(partition.add(DESCRIPTIVE, 4), 8);
        Partition::know(partition.node(5), 1);
        Partition::own(partition.add(EXPERIMENTAL, 6), 7);
        partition.add(EXPERIMENTAL, 7);
        partition.add(DESCRIPTIVE, 8);
        partition.node(9);
        // The others are no packages.
        partition.add(Structural::StructuralMetadataKeys::materialPackage(), 12);
        partition.add(DESCRIPTIVE, 10);

        partition.load(packet(DARK, hex("01 02")));
        // An unknown element.
        partition.load(packet(nodeKey(), identifier(11) + hex("77 77 00 01 AB")));
    }

    static Schema schema()
    {
        Schema schema;
        auto const label = Structural::StructuralMetadataULs::contentStorage();
        Schema::Place const instanceUID = {MetadataULs::instanceUID()};
        schema.add(label, 0x3B03, Types::Identifiers::StrongReference);
        schema.add(MetadataKeys::preface(), {instanceUID, {label}});
        schema.add(Structural::StructuralMetadataKeys::contentStorage(), {instanceUID, {MetadataULs::packages()}});
        schema.add(Structural::StructuralMetadataKeys::materialPackage(), {instanceUID});
        schema.add(DESCRIPTIVE, {instanceUID, {labelOf(CHILD)}});
        schema.add(EXPERIMENTAL, {instanceUID, {labelOf(CHILD)}});
        return schema;
    }

    static void own(MetadataSet & set, Types::UniversalLabel const & label, unsigned int child)
    {
        elementOf<ReferenceElement>(set, label).setUnverifiedReference(referenceTo<Types::StrongReference>(child));
    }

    Partition partition;
};

TEST_F(PartitionMetadataOrders, SetsAreWrittenInEach)
{
    std::pair<Order, std::vector<unsigned int>> const cases[] = {
        {Order::PrefaceFirst, {1, 2, 12, 3, 5, 9, 11, 4, 8, 10, 6, 7}},
        {Order::ForwardDepthFirst, {1, 2, 3, 4, 8, 5, 6, 7, 12, 9, 11, 10}},
        {Order::ForwardBySiblings, {1, 2, 3, 6, 12, 4, 5, 8, 7, 9, 11, 10}},
        {Order::NormalizedForward, {1, 2, 12, 3, 4, 8, 5, 6, 7, 9, 11, 10}},
        {Order::NormalizedReversed, {10, 7, 6, 8, 4, 1, 11, 9, 5, 3, 12, 2}},
        {Order::NormalizedReversedExperimentalFirst, {6, 7, 10, 8, 4, 1, 11, 9, 5, 3, 12, 2}},
    };

    for (auto const & [order, numbers] : cases)
    {
        SCOPED_TRACE(order);
        for (bool const withDark : {true, false})
            for (bool const withPrimer : {true, false})
            {
                auto expected = numbers;
                if (withPrimer)
                    expected.insert(expected.begin(), PRIMER);
                if (withDark)
                    expected.push_back(DARK_SET);
                Bytes const bytes = partition.written(order, withDark, withPrimer);
                EXPECT_EQ(readNumbers(partition.schema, bytes), expected);
                EXPECT_EQ(partition.metadata.serializedSize(withDark, withPrimer), bytes.size());
            }
    }
}

TEST(PartitionMetadata, TellsFaultsOfStructure)
{
    Partition partition;
    EXPECT_FAILURE(InvalidStructure, "Preface not found in PartitionMetadata", partition.written(Order::PrefaceFirst));
    EXPECT_FAILURE(NotFound, "Didn't find MetadataSet with specified key.",
                   partition.written(Order::ForwardDepthFirst));

    Partition::own(partition.preface(1), 2);
    Partition::ownAll(partition.node(2), {3, 3});
    partition.node(3);
    for (Order const order : {Order::ForwardDepthFirst, Order::ForwardBySiblings})
        EXPECT_FAILURE(InvalidFormat,
                       "Circular reference for this instanceUID: ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.00.00.00.03",
                       partition.written(order));

    partition.node(3);
    EXPECT_FAILURE(InvalidFormat,
                   "The 06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.7e.00 metadataSet has an instance UID, "
                   "ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.00.00.00.03, already defined!",
                   partition.written(Order::PrefaceFirst));
    partition.metadata.removeMetadataSet(numberedUUID(3));
    partition.preface(7);
    EXPECT_FAILURE(InvalidStructure, "More than one Preface found in PartitionMetadata",
                   partition.written(Order::PrefaceFirst));
}

TEST(PartitionMetadata, GivesTagsToAllAttributes)
{
    Schema schema;
    auto const untagged = labelOf(0x77);
    schema.dictionary()->add(untagged, Templates::auto_ptr<MetaMetadata::MetaElement>(
                                           new MetaMetadata::MetaSimpleElement(untagged, Types::Identifiers::UInt8)));
    schema.add(DESCRIPTIVE, {{MetadataULs::instanceUID()}, {untagged}});
    Partition partition(schema);
    auto const & primer = std::as_const(partition.metadata).partitionDictionary().primer();

    // An element that nobody knows has the first tag that could be given out.
    partition.load(packet(nodeKey(), identifier(1) + hex("80 00 00 01 AB")));
    partition.add(DESCRIPTIVE, 2);
    partition.preface(3);
    // The size without a primer asks for no tags, and leaves them to be given.
    UInt64 const size = partition.metadata.serializedSize(true, false);
    EXPECT_EQ(primer.find(untagged), nullptr);
    UInt64 const written = partition.written(Order::PrefaceFirst).size();
    EXPECT_EQ(written, size + primer.serializedSize());
    ASSERT_NE(primer.find(untagged), nullptr);
    EXPECT_EQ(*primer.find(untagged), tagOf(0x8001));
}

TEST(PartitionMetadata, KnowsParents)
{
    Partition partition;
    MetadataSet & preface = partition.preface(1);
    MetadataSet & node = partition.node(2);
    MetadataSet & child = partition.node(3);
    auto const parents = [&]
    {
        Templates::vector<MetadataSet *> sets;
        unsigned int const count = partition.metadata.parentSets(&child, sets);
        EXPECT_EQ(count, sets.size());
        return numbersOf(sets);
    };

    Partition::know(node, 3);
    EXPECT_THAT(parents(), IsEmpty());
    Partition::ownAll(node, {3, 2, 3});
    EXPECT_THAT(parents(), ElementsAre(2, 2));
    Partition::own(preface, 3);
    EXPECT_THAT(parents(), ElementsAre(1, 2, 2));
    elementOf<ArrayReferenceElement>(node, CHILDREN).remove(0);
    EXPECT_THAT(parents(), ElementsAre(1, 2));
    partition.metadata.removeMetadataSet(numberedUUID(2));
    EXPECT_THAT(parents(), ElementsAre(1));
}

TEST(PartitionMetadata, TellsListeners)
{
    ChangeLog first;
    ChangeLog second;
    ChangeLog late;
    Partition partition;
    partition.metadata.addMetadataListener(Listener(&first, false), false);
    partition.metadata.addMetadataListener(Listener(&first, false), true);
    partition.metadata.addMetadataListener(Listener(&second, false), false);

    // A listener says that the key means a node.
    MetadataSet & set = *partition.load(packet(strangeKey(), identifier(1) + hex("77 77 00 01 AB")));
    EXPECT_EQ(set.key(), nodeKey());
    Partition::ownAll(set, {2});
    elementOf<ArrayReferenceElement>(set, CHILDREN).remove(0);
    EXPECT_THAT(first.take(), ElementsAre("added 0", "added 0", "created 1", "added 33", "new 0 among 0 of 33",
                                          "no 0 among 1 of 33"));
    partition.metadata.addMetadataListener(Listener(&late, false), true);
    EXPECT_THAT(late.take(), ElementsAre("created 1", "added 0", "added 33", "added 0"));
    second.take();

    // One that leaves doesn't keep others from hearing.
    first.leaves = &partition.metadata;
    setNumber(set, 5);
    setNumber(set, 6);
    EXPECT_THAT(first.take(), ElementsAre("added 16"));
    EXPECT_THAT(second.take(), ElementsAre("added 16", "updated 16"));
    late.take();

    // Refused, a set stays and is still found.
    second.refuses = true;
    EXPECT_THROW(partition.metadata.removeMetadataSet(numberedUUID(1)), Exceptions::OperationNotAllowed);
    EXPECT_THROW(identify(set, numberedUUID(9)), Exceptions::OperationNotAllowed);
    EXPECT_EQ(partition.find(1), &set);
    EXPECT_EQ(partition.find(9), nullptr);
    EXPECT_THROW(elementOf<ArrayReferenceElement>(set, CHILDREN).set(Templates::auto_ptr<Types::Collection>()),
                 Exceptions::OperationNotAllowed);
    EXPECT_EQ(late.take().back(), "removed 33");
}

TEST(PartitionMetadata, ClonesASetWithWhatItOwns)
{
    Partition partition;
    Partition other;
    MetadataSet & root = partition.node(1);
    MetadataSet & leaf = partition.node(3);
    setNumber(leaf, 7);
    Partition::own(partition.node(2), 3);
    Partition::ownAll(root, {2, 99, 3});
    Partition::know(root, 3);

    MetadataSet & clone = *root.clone(true, &other.metadata);
    EXPECT_EQ(other.metadata.size(), 4U);
    EXPECT_TRUE(clone.find(labelOf(PEER)).empty());
    auto & copies = elementOf<ArrayReferenceElement>(clone, CHILDREN);
    ASSERT_EQ(copies.size(), 2U) << "nobody has 99";
    auto const found = other.metadata.find(MetadataULs::instanceUID(), copies.at(1));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(elementOf<SimpleElement>(*found[0], NUMBER).value()->serializedSize(), 4);
    EXPECT_NE(*found[0]->instanceUID(), *leaf.instanceUID());
}

TEST(PartitionMetadata, ClonesTreesOfAnyForm)
{
    unsigned int const DEPTH = 20000;
    Partition chain;
    chain.addChain(DEPTH);
    chain.find(1)->clone(true, nullptr);
    EXPECT_EQ(chain.metadata.size(), 2 * DEPTH + 1);
    Partition::own(*chain.find(DEPTH), 1);
    EXPECT_FAILURE(InvalidFormat,
                   "Circular reference for this instanceUID: ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.00.00.00.01",
                   chain.find(1)->clone(true, nullptr));

    // Each set owns the next one twice, which would be 2^40 copies.
    Partition bush;
    for (unsigned int i = 1; i <= 40; ++i)
        Partition::ownAll(bush.node(i), {i + 1, i + 1});
    EXPECT_THROW(bush.find(1)->clone(true, nullptr), Exceptions::InvalidFormat);
}

}}}

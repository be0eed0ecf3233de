#include "Metadata/PartitionMetadata.h"

#include "DataIO/DataSink.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidStructure.h"
#include "Exceptions/NotFound.h"
#include "Exceptions/OperationNotAllowed.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/DarkMetadataSet.h"
#include "Metadata/DarkParsedGroup.h"
#include "Metadata/Listeners/NullMetadataListener.h"
#include "Metadata/PartitionMetadataUtils.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Types/UInt32.h"
#include "support/Failure.h"
#include "support/Partition.h"

#include <gmock/gmock.h>

#include <functional>

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

Bytes bytesOf(KLV::Key const & key)
{
    return Bytes(key.rawBuffer(), key.rawBuffer() + key.size());
}

Bytes packet(KLV::Key const & key, Bytes const & value)
{
    return bytesOf(key) + Bytes{0x83, 0, 0, static_cast<unsigned char>(value.size())} + value;
}

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

std::vector<unsigned int> readNumbers(Partition const & partition, Bytes const & bytes)
{
    std::vector<unsigned int> numbers;
    BytesSource source(bytes);
    KLV::Reader reader(source);
    while (!source.endOfStream())
    {
        UInt64 skipped = 0;
        auto const next = reader.nextKLV(skipped, 0);
        if (Packs::isPrimerPack(next->key()))
            numbers.push_back(PRIMER);
        else if (next->key() == DARK)
            numbers.push_back(DARK_SET);
        else
        {
            MetadataSet set(next->key(), partition.schema.set(next->key()), nullptr);
            set.load(*next, partition.metadata.partitionDictionary(), true);
            numbers.push_back(numberOf(set));
        }
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
    ASSERT_EQ(std::distance(partition.metadata.darkBegin(), partition.metadata.darkEnd()), 1);
    EXPECT_EQ(serialized(**partition.metadata.darkBegin()), packet(DARK, hex("01 02")));
}

TEST(PartitionMetadata, KeepsNothingOfAPacketThatFails)
{
    Partition partition;
    EXPECT_THROW(partition.load(packet(nodeKey(), identifier(1) + hex("01 10 00"))), Exceptions::InvalidLength);
    EXPECT_EQ(partition.metadata.size(), 0U);
    EXPECT_EQ(partition.find(1), nullptr);
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

    // Of several, the first by key goes.
    partition.load(packet(strangeKey(), identifier(5)));
    partition.node(5);
    partition.preface(5);
    EXPECT_TRUE(partition.metadata.removeMetadataSet(numberedUUID(5)));
    EXPECT_THAT(partition.metadata.find(MetadataKeys::preface()), IsEmpty());
    EXPECT_EQ(partition.metadata.size(), 2U);
}

TEST(PartitionMetadata, KeepsItsOrderAsSetsComeAndGo)
{
    Partition partition;
    for (unsigned int number : {1, 2, 3})
        partition.node(number);
    auto const replace = [&](unsigned int gone, unsigned int added)
    {
        partition.metadata.removeMetadataSet(numberedUUID(gone));
        partition.node(added);
        return numbersOf(all(partition.metadata));
    };

    EXPECT_THAT(replace(3, 4), ElementsAre(1, 2, 4));
    EXPECT_THAT(replace(1, 5), ElementsAre(2, 4, 5));
    partition.preface(6);
    EXPECT_THAT(replace(5, 7), ElementsAre(6, 2, 4, 7));
    for (unsigned int gone : {7, 4, 2})
        partition.metadata.removeMetadataSet(numberedUUID(gone));
    EXPECT_THAT(replace(6, 8), ElementsAre(8));
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
    struct Case
    {
        Order order;
        std::vector<unsigned int> numbers;
    };
    Case const cases[] = {
        {Order::PrefaceFirst, {1, 2, 12, 3, 5, 9, 11, 4, 8, 10, 6, 7}},
        {Order::ForwardDepthFirst, {1, 2, 3, 4, 8, 5, 6, 7, 12, 9, 11, 10}},
        {Order::ForwardBySiblings, {1, 2, 3, 6, 12, 4, 5, 8, 7, 9, 11, 10}},
        {Order::NormalizedForward, {1, 2, 12, 3, 4, 8, 5, 6, 7, 9, 11, 10}},
        {Order::NormalizedReversed, {10, 7, 6, 8, 4, 1, 11, 9, 5, 3, 12, 2}},
        {Order::NormalizedReversedExperimentalFirst, {6, 7, 10, 8, 4, 1, 11, 9, 5, 3, 12, 2}},
    };

    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.order);
        for (bool const withDark : {true, false})
            for (bool const withPrimer : {true, false})
            {
                auto expected = c.numbers;
                if (withPrimer)
                    expected.insert(expected.begin(), PRIMER);
                if (withDark)
                    expected.push_back(DARK_SET);
                Bytes const bytes = partition.written(c.order, withDark, withPrimer);
                EXPECT_EQ(readNumbers(partition, bytes), expected);
                EXPECT_EQ(partition.metadata.serializedSize(withDark, withPrimer), bytes.size());
            }
    }
}

TEST_F(PartitionMetadataOrders, CountsSetsOutsideTheTree)
{
    Templates::vector<MetadataSet const *> order;
    EXPECT_EQ(partition.metadata.calculateSerializationOrder(order, false, true), 3U);
    EXPECT_EQ(order.size(), 12U);
}

TEST(PartitionMetadata, TellsFaultsOfStructure)
{
    Partition partition;
    auto const writing = [&](Order order)
    {
        return partition.written(order);
    };

    EXPECT_FAILURE(InvalidStructure, "Preface not found in PartitionMetadata", writing(Order::PrefaceFirst));
    EXPECT_FAILURE(NotFound, "Didn't find MetadataSet with specified key.", writing(Order::ForwardDepthFirst));

    // Owned twice, below one set or two, or by itself.
    Partition::own(partition.preface(1), 2);
    MetadataSet & second = partition.node(2);
    MetadataSet & third = partition.node(3);
    Partition::ownAll(second, {3, 3});
    for (unsigned int child : {0, 3, 2, 1})
    {
        SCOPED_TRACE(child);
        auto & children = elementOf<ArrayReferenceElement>(second, CHILDREN);
        while (children.size() > 1 && child != 0)
            children.remove(1);
        if (child != 0)
            Partition::own(third, child);

        std::string const circular = "Circular reference for this instanceUID: "
                                     "ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.00.00.00.0" +
                                     std::to_string(child == 2   ? 2
                                                    : child == 1 ? 2
                                                                 : 3);
        EXPECT_FAILURE(InvalidFormat, circular.c_str(), writing(Order::ForwardDepthFirst));
        EXPECT_FAILURE(InvalidFormat, circular.c_str(), writing(Order::ForwardBySiblings));
        EXPECT_EQ(readNumbers(partition, writing(Order::PrefaceFirst)).size(), 4U);
    }

    partition.node(3);
    EXPECT_FAILURE(InvalidFormat,
                   "The 06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.7e.00 metadataSet has an instance UID, "
                   "ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.00.00.00.03, already defined!",
                   writing(Order::PrefaceFirst));
    partition.metadata.removeMetadataSet(numberedUUID(3));
    partition.preface(7);
    EXPECT_FAILURE(InvalidStructure, "More than one Preface found in PartitionMetadata", writing(Order::PrefaceFirst));
}

TEST(PartitionMetadata, WritesSetsWithoutIdentifier)
{
    Partition partition;
    partition.preface(1);
    partition.load(packet(nodeKey(), {}));
    partition.load(packet(nodeKey(), {}));
    EXPECT_EQ(partition.written(Order::ForwardDepthFirst, true, false).size(), 20 + 20 + 40U);
}

TEST(PartitionMetadata, WritesADeepTree)
{
    unsigned int const DEPTH = 100000;
    Partition partition;
    partition.addChain(DEPTH);

    for (bool const depthFirst : {true, false})
    {
        Templates::vector<MetadataSet const *> order;
        EXPECT_EQ(partition.metadata.calculateSerializationOrder(order, true, depthFirst), 0U);
        ASSERT_EQ(order.size(), DEPTH + 1);
        EXPECT_EQ(numberOf(*order.back()), DEPTH);
    }
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

    // Sizes follow each change.
    setNumber(*partition.find(1), 5);
    EXPECT_EQ(partition.metadata.serializedSize(true, false), size + 2 + 2 + 4);
    partition.load(packet(DARK, {}));
    EXPECT_EQ(partition.metadata.serializedSize(true, false), size + 8 + 20);
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

    // What a listener learns while a reference changes isn't kept.
    class Asking : public Listeners::NullMetadataListener
    {
    public:
        explicit Asking(std::function<void()> ask) : ask_(std::move(ask)) {}
        void updatedElementCollection(MetadataSet &, MetaMetadata::MetaElement const *, Element &,
                                      Types::Collection const &, unsigned int, Types::SimpleDataType const *) override
        {
            ask_();
        }

    private:
        std::function<void()> ask_;
    };
    partition.metadata.addMetadataListener(Listener(new Asking([&] { parents(); })), false);
    elementOf<ArrayReferenceElement>(node, CHILDREN).remove(0);
    EXPECT_THAT(parents(), ElementsAre(1, 2));
    partition.metadata.removeMetadataSet(numberedUUID(2));
    EXPECT_THAT(parents(), ElementsAre(1));
}

// Writes down what it hears: kind of change, number of the set or last byte of
// the label.
class Recorder : public PartitionMetadataListener
{
public:
    void metadataSetKey(KLV::Key & key) override
    {
        if (key == strangeKey())
            key = nodeKey();
    }
    void createdMetadataSet(MetadataSet * set) override { note("created", numberOf(*set)); }
    void removedMetadataSet(MetadataSet * set) override { note("leaves", numberOf(*set)); }
    void addedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element & element,
                      Types::BaseType const &) override
    {
        note("added", element.label()[15]);
    }
    void updatedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element & element,
                        Types::SimpleDataType const &, Types::SimpleDataType const &) override
    {
        note("updated", element.label()[15]);
    }
    void updatedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element & element, Types::Collection const &,
                        Types::Collection const &) override
    {
        note("updated all of", element.label()[15]);
    }
    void updatedElementCollection(MetadataSet &, MetaMetadata::MetaElement const *, Element & element,
                                  Types::Collection const &, unsigned int, Types::SimpleDataType const * item) override
    {
        note(item != nullptr ? "new item of" : "no item of", element.label()[15]);
    }
    void removedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element & element,
                        Types::BaseType const &) override
    {
        note("removed", element.label()[15]);
    }

    std::vector<std::string> take() { return std::exchange(log_, {}); }

    bool refuses = false;
    // Leaves the table at the next change.
    PartitionMetadata * leaves = nullptr;

private:
    void note(std::string const & what, unsigned int number)
    {
        log_.push_back(what + ' ' + std::to_string(number));
        if (leaves != nullptr)
            leaves->removeMetadataListener(Listener(this, false));
        if (refuses)
            throw Exceptions::OperationNotAllowed("refused", __FILE__, __LINE__);
    }

    std::vector<std::string> log_;
};

TEST(PartitionMetadata, TellsListeners)
{
    Recorder first;
    Recorder second;
    Recorder late;
    Partition partition;
    partition.metadata.addMetadataListener(Listener(&first, false), false);
    partition.metadata.addMetadataListener(Listener(&first, false), true);
    partition.metadata.addMetadataListener(Listener(&second, false), false);

    // A listener says that the key means a node.
    MetadataSet & set = *partition.load(packet(strangeKey(), identifier(1) + hex("77 77 00 01 AB")));
    EXPECT_EQ(set.key(), nodeKey());
    Partition::ownAll(set, {2});
    elementOf<ArrayReferenceElement>(set, CHILDREN).remove(0);
    EXPECT_THAT(first.take(),
                ElementsAre("added 0", "added 0", "created 1", "added 33", "new item of 33", "no item of 33"));
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
    EXPECT_THROW(SetOwner::identify(set, numberedUUID(9)), Exceptions::OperationNotAllowed);
    EXPECT_EQ(partition.find(1), &set);
    EXPECT_EQ(partition.find(9), nullptr);
    EXPECT_THROW(elementOf<ArrayReferenceElement>(set, CHILDREN).set(Templates::auto_ptr<Types::Collection>()),
                 Exceptions::OperationNotAllowed);
    EXPECT_EQ(late.take().back(), "removed 33");
}

TEST(PartitionMetadata, ACloneIsASetOfThePartition)
{
    Partition partition;
    MetadataSet & node = partition.node(1);
    Partition::ownAll(node, {2});
    partition.node(2);
    MetadataSet & clone = *node.clone(true, nullptr);
    EXPECT_EQ(partition.metadata.size(), 4U);
    EXPECT_THAT(partition.metadata.find(MetadataULs::instanceUID(), *clone.instanceUID()), ElementsAre(&clone));

    // Elsewhere it keeps what the schema doesn't give its kind there, and is
    // written.
    Schema richer;
    richer.add(labelOf(0x77), 0x0177, Types::Identifiers::UInt32);
    richer.add(nodeKey(), {{MetadataULs::instanceUID()}, {labelOf(0x77)}});
    Partition from(richer);
    MetadataSet & rich = from.node(3);
    elementOf<SimpleElement>(rich, labelOf(0x77))
        .set(Templates::auto_ptr<Types::SimpleDataType>(new Types::UInt32(7)), false);
    partition.preface(4);
    UInt64 const before = partition.written(Order::PrefaceFirst, true, false).size();
    rich.clone(false, &partition.metadata);
    partition.metadata.generateLocalTags();
    EXPECT_EQ(partition.written(Order::PrefaceFirst, true, false).size(), before + 20 + 20 + 8);
}

TEST(PartitionMetadata, HasAStatus)
{
    using Status = Packs::PartitionPack::PartitionStatus;
    Schema schema;
    schema.add(nodeKey(), {{MetadataULs::instanceUID()},
                           {labelOf(NUMBER), "Number", Schema::Status::Req},
                           {labelOf(TEXT), "Text", Schema::Status::BEffort}});
    struct Case
    {
        char const * triplets;
        bool closable;
        Status status;
    };
    Case const cases[] = {
        {"", true, Status::OPEN_INCOMPLETE},
        {"01 10 00 04 00 00 00 01", true, Status::CLOSED_INCOMPLETE},
        {"01 11 00 02 00 41", true, Status::OPEN_COMPLETE},
        {"01 10 00 04 00 00 00 01 01 11 00 02 00 41", true, Status::CLOSED_COMPLETE},
        {"01 10 00 04 00 00 00 01", false, Status::OPEN_INCOMPLETE},
        {"01 10 00 04 00 00 00 01 01 11 00 02 00 41", false, Status::OPEN_COMPLETE},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.triplets);
        Partition partition(schema);
        partition.load(packet(nodeKey(), identifier(1) + hex(c.triplets)));
        EXPECT_EQ(verifyPartitionMetadataStatus(partition.metadata, c.closable), c.status);
    }
}

}}}

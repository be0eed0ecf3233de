#include "Metadata/Element.h"

#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidChange.h"
#include "Exceptions/InvalidElement.h"
#include "Exceptions/InvalidElementLength.h"
#include "Exceptions/InvalidMetaAttribute.h"
#include "Exceptions/InvalidType.h"
#include "Exceptions/LocalTagNotFound.h"
#include "Exceptions/MetadataSetReferenceNotAllowed.h"
#include "Exceptions/NotFound.h"
#include "KLV/Value.h"
#include "MetaMetadata/MisplacedAttribute.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/ElementFactory.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/SimpleElement.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/StrongReference.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/Unknown.h"
#include "Types/WeakReference.h"
#include "support/BytesSink.h"
#include "support/BytesSource.h"
#include "support/Failure.h"
#include "support/SetOwner.h"

#include <gmock/gmock.h>

namespace Vantry { namespace Metadata { namespace {

using namespace Tests;
using testing::ElementsAre;
using Simple = Templates::auto_ptr<Types::SimpleDataType>;
using Row = Templates::auto_ptr<Types::Collection>;
using Attribute = Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const>;

template <class Number>
Simple number(unsigned int value)
{
    using Integer = decltype(std::declval<Number>().value());
    return Simple(new Number(static_cast<Integer>(value)));
}

Templates::auto_ptr<Types::Reference> strong(unsigned char last)
{
    return Templates::auto_ptr<Types::Reference>(new Types::StrongReference(uuid(last)));
}

Templates::auto_ptr<Types::Reference> weak(unsigned char last)
{
    return Templates::auto_ptr<Types::Reference>(new Types::WeakReference(uuid(last)));
}

template <class Kind, class Number>
Row rowOf(std::initializer_list<unsigned int> values)
{
    Row row(new Kind(0));
    for (unsigned int value : values)
        row->append(number<Number>(value));
    return row;
}

class ElementTest : public testing::Test
{
protected:
    template <class Class>
    Class & element(SchemaAttribute attribute)
    {
        return elementOf<Class>(set, attribute);
    }

    // What an element writes, with a length field of that many bytes.
    Bytes written(Element const & element, int lengthSize)
    {
        BytesSink sink;
        element.serialize(sink, owner.partitionDictionary(), lengthSize);
        return sink.bytes();
    }

    Attribute unknown{new MetaMetadata::UnknownAttribute(tagOf(0x8123), MetaMetadata::UnknownAttribute::InvalidValue)};
    Schema schema;
    SetOwner owner{schema};
    MetadataSet & set = owner.node();
};

TEST_F(ElementTest, HoldsOneValue)
{
    auto & required = element<SimpleElement>(NUMBER);
    EXPECT_TRUE(required.empty());
    EXPECT_EQ(required.totalLength(), 0u);
    EXPECT_EQ(written(required, 2), Bytes());

    required.set(number<Types::UInt32>(7), false);
    required.set(number<Types::UInt32>(8), false);
    EXPECT_EQ(required.totalLength(), 4u);
    EXPECT_FAILURE(InvalidChange,
                   "Setting value with an invalid type. Value Type of new value: UInt16 Value type of elementUInt32",
                   required.set(number<Types::UInt16>(9), true));
    EXPECT_FAILURE(InvalidChange, "Value 'Number' is required according to Schema", required.set(Simple(), false));
    EXPECT_EQ(written(required, 2), hex("01 10 00 04 00 00 00 08"));

    required.set(Simple(), true);
    required.set(Simple(), true);
    EXPECT_THAT(owner.log, ElementsAre("added 10 (empty)", "updated 10", "removed 10"));

    // Nothing is known of what a misplaced attribute needs, or how it is
    // called.
    Attribute const misplaced(
        new MetaMetadata::MisplacedAttribute(*schema.dictionary()->findMetaElement(labelOf(NUMBER))));
    SimpleElement other(number<Types::UInt32>(1), misplaced, set);
    other.set(Simple(), false);
    EXPECT_TRUE(other.empty());
}

TEST_F(ElementTest, RefersToOneSet)
{
    auto & child = element<ReferenceElement>(CHILD);
    auto & peer = element<ReferenceElement>(PEER);
    MetadataSet & target = owner.node(5);
    MetadataSet & preface =
        owner.add(new MetadataSet(MetadataKeys::preface(), schema.set(MetadataKeys::preface()), &owner));
    owner.log.clear();

    child.set(&target);
    peer.set(&target);
    EXPECT_EQ(child.value()->uuid(), uuid(5));
    EXPECT_EQ(written(peer, 1), hex("01 22 10 EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE 05"));
    child.setUnverifiedReference(strong(6));
    EXPECT_THAT(owner.log, ElementsAre("added 20 (empty)", "added 22 (empty)", "updated 20"));

    EXPECT_FAILURE(InvalidChange,
                   "Setting value with an invalid type. Value Type of new value: WeakReference Value type of "
                   "elementStrongReference",
                   child.setUnverifiedReference(weak(7)));
    EXPECT_FAILURE(MetadataSetReferenceNotAllowed,
                   "ReferenceElement with UL 06.0e.2b.34.01.01.01.01.7f.00.00.00.00.00.00.20 cannot reference set with "
                   "key '06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.2f.00'. Must reference one of: "
                   "[06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.7e.00]",
                   child.set(&preface));
    EXPECT_FAILURE(NotFound, "The metadata set has no instance identifier to refer to", child.set(&set));
    EXPECT_EQ(child.value()->uuid(), uuid(6));

    ReferenceElement stray(strong(1), unknown, set);
    EXPECT_FAILURE(InvalidMetaAttribute, "ReferenceElement can not be changed because there is no metaAttribute.",
                   stray.set(&target));
    ReferenceElement odd(Templates::auto_ptr<Types::Reference>(), set.find(labelOf(NUMBER)).metaAttribute(), set);
    EXPECT_FAILURE(InvalidMetaAttribute,
                   "Trying to set a value to a ReferenceElement that differs from its MetaAttribute information",
                   odd.set(&target));

    child.set(static_cast<MetadataSet *>(nullptr));
    EXPECT_TRUE(child.empty());
}

TEST_F(ElementTest, HoldsARowOfValues)
{
    auto & values = element<ArrayElement>(VALUES); // two or three
    auto & marks = element<BatchElement>(MARKS);

    EXPECT_FAILURE(IndexOutOfBounds, "Trying to access a element beyond the end of data", values.at(0));
    EXPECT_FAILURE(IndexOutOfBounds, "Index out of bounds", values.remove(0));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Schema does not allow less than 2 elements in the collection.",
                   values.append(number<Types::UInt16>(1)));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Collection can not be changed to another type!",
                   values.set(rowOf<Types::Batch, Types::UInt16>({1, 2})));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Schema only allows to add 3 elements to this collection.",
                   values.set(rowOf<Types::Array, Types::UInt16>({1, 2, 3, 4})));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Setting collection with an invalid Sub Type.",
                   values.set(rowOf<Types::Array, Types::UInt8>({1, 2})));
    EXPECT_EQ(values.value(), nullptr);
    EXPECT_TRUE(owner.log.empty());

    values.set(rowOf<Types::Array, Types::UInt16>({1, 2}));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Schema does not allow less than 2 elements in the collection.",
                   values.remove(1));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Setting value with an invalid Sub Type in a collection.",
                   values.append(number<Types::UInt8>(1)));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Setting value with an invalid Sub Type in a collection.",
                   values.append(Simple()));
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to insert an element past the end of the data",
                   values.insertAt(3, number<Types::UInt16>(9)));
    values.insertAt(0, number<Types::UInt16>(9));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Schema only allows to add 3 elements to this collection.",
                   values.append(number<Types::UInt16>(1)));
    EXPECT_EQ(written(values, 2), hex("01 30 00 0E 00 00 00 03 00 00 00 02 00 09 00 01 00 02"));

    EXPECT_FAILURE(InvalidChange, "Value 'Values': Schema only allows to add 3 elements to this collection.",
                   values.insertAt(9, number<Types::UInt16>(1)));

    // A collection without items is a value.
    marks.append(number<Types::UInt8>(5));
    marks.remove(0);
    EXPECT_EQ(written(marks, 2), hex("01 31 00 08 00 00 00 00 00 00 00 01"));
    marks.set(Row(new Types::Batch(1)));
    marks.set(Row());
    EXPECT_THAT(owner.log, ElementsAre("added 30 (empty)", "new 0 among 2 of 30", "added 31 (empty)",
                                       "new 0 among 0 of 31", "no 0 among 1 of 31", "updated all of 31", "removed 31"));

    // Without a schema only the size of the items counts, and the owner
    // doesn't hear of what can't be.
    BatchElement free(rowOf<Types::Batch, Types::UInt8>({1}), unknown, set);
    owner.log.clear();
    EXPECT_FAILURE(InvalidElement, "Appending an invalid element", free.append(number<Types::UInt16>(1)));
    EXPECT_TRUE(owner.log.empty());
}

TEST_F(ElementTest, RefersToARowOfSets)
{
    auto & children = element<ArrayReferenceElement>(CHILDREN);
    auto & peers = element<BatchReferenceElement>(PEERS); // three at most
    MetadataSet & target = owner.node(5);
    MetadataSet stranger(strangeKey(), nullptr, nullptr);

    children.append(&target);
    children.insertUnverifiedReferenceAt(0, strong(4));
    children.insertAt(1, &target);
    EXPECT_EQ(children.at(0).uuid(), uuid(4));
    EXPECT_EQ(children.at(1).uuid(), uuid(5));
    EXPECT_EQ(children.size(), 3u);

    EXPECT_FAILURE(InvalidChange,
                   "Trying to set a WeakReference on a ArrayReferenceElement expecting a StrongReference",
                   children.appendUnverifiedReference(weak(1)));
    EXPECT_FAILURE(InvalidChange,
                   "Trying to set a StrongReference on a BatchReferenceElement expecting a WeakReference",
                   peers.appendUnverifiedReference(strong(1)));
    EXPECT_FAILURE(InvalidChange, "Value 'Children': Setting value with an invalid Sub Type in a collection.",
                   children.append(nullptr));
    EXPECT_FAILURE(MetadataSetReferenceNotAllowed,
                   "ReferenceElement with UL 06.0e.2b.34.01.01.01.01.7f.00.00.00.00.00.00.23 cannot reference set with "
                   "key '06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.7d.00'. Must reference one of: "
                   "[06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.7e.00]",
                   peers.append(&stranger));
    for (unsigned char i = 1; i <= 3; ++i)
        peers.appendUnverifiedReference(weak(i));
    EXPECT_FAILURE(InvalidChange, "Value 'Peers': Schema only allows to add 3 elements to this collection.",
                   peers.append(&target));

    // Only the first item is looked at when a collection is set.
    Row mixed(new Types::Array(16));
    mixed->append(strong(1));
    mixed->append(Simple(new Types::UUID(uuid(2))));
    children.set(mixed);
    EXPECT_FAILURE(InvalidType, "The value is no reference", children.at(1));

    // An empty array that was loaded needn't say how large its items are.
    BytesSource source(Bytes(8, 0));
    KLV::Value empty(source, 8);
    children.load(empty);
    children.insertAt(0, &target);
    EXPECT_EQ(children.at(0).uuid(), uuid(5));

    ArrayReferenceElement stray(Row(), unknown, set);
    EXPECT_FAILURE(InvalidMetaAttribute, "ReferenceElement can not be changed because there is no metaAttribute.",
                   stray.append(&target));
}

TEST_F(ElementTest, WritesLengthsOfEachSize)
{
    Bytes const large = repeated(70000, 0xAB);
    struct Case
    {
        std::size_t size;
        int lengthSize;
        char const * head;
    };
    // The length wraps at 16 bits, whatever the field could hold.
    Case const CASES[] = {
        {3, 1, "81 23 03"},        {3, 2, "81 23 00 03"},           {3, 4, "81 23 00 00 00 03"}, {3, 3, "81 23"},
        {70000, 2, "81 23 11 70"}, {70000, 4, "81 23 00 00 11 70"}, {255, 1, "81 23 FF"},
    };
    for (Case const & c : CASES)
    {
        SimpleElement const element(Simple(new Types::Unknown(large.data(), static_cast<unsigned>(c.size))), unknown,
                                    set);
        EXPECT_EQ(written(element, c.lengthSize), hex(c.head) + large.first(c.size & 0xFFFF)) << c.head;
    }

    SimpleElement const element(Simple(new Types::Unknown(large.data(), 256)), unknown, set);
    EXPECT_FAILURE(InvalidElementLength, "Type size exceeded", written(element, 1));

    auto const empty = schema.partitionDictionary(Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack));
    BytesSink sink;
    this->element<SimpleElement>(NUMBER).set(number<Types::UInt32>(1), false);
    EXPECT_FAILURE(LocalTagNotFound, "No LocalTag defined for this UniversalLabel",
                   set.find(labelOf(NUMBER)).serialize(sink, *empty, 2));
    EXPECT_EQ(sink.bytes(), Bytes());
}

TEST_F(ElementTest, StaysAsItWasWhenTheOwnerRefuses)
{
    element<SimpleElement>(NUMBER).set(number<Types::UInt32>(7), false);
    element<ArrayElement>(VALUES).set(rowOf<Types::Array, Types::UInt16>({1, 2}));
    Bytes const number7 = written(set.find(labelOf(NUMBER)), 2);
    Bytes const values = written(set.find(labelOf(VALUES)), 2);

    owner.refuses = true;
    EXPECT_FAILURE(OperationNotAllowed, "refused", element<SimpleElement>(NUMBER).set(Simple(), true));
    EXPECT_FAILURE(OperationNotAllowed, "refused", element<ArrayElement>(VALUES).append(number<Types::UInt16>(3)));
    EXPECT_FAILURE(OperationNotAllowed, "refused", element<ArrayElement>(VALUES).set(Row()));
    EXPECT_FAILURE(OperationNotAllowed, "refused", SimpleElement(number<Types::UInt8>(1), unknown, set));
    EXPECT_EQ(written(set.find(labelOf(NUMBER)), 2), number7);
    EXPECT_EQ(written(set.find(labelOf(VALUES)), 2), values);

    // The end of an element can't be refused.
    owner.log.clear();
    owner.sets.clear();
    EXPECT_THAT(owner.log, testing::UnorderedElementsAre("removed 10", "removed 30"));
}

TEST_F(ElementTest, IsCopiedIntoAnotherSet)
{
    element<ReferenceElement>(CHILD).setUnverifiedReference(strong(3));
    element<ArrayElement>(VALUES).set(rowOf<Types::Array, Types::UInt16>({1, 2}));
    SetOwner other(schema);
    MetadataSet & target = other.node();

    for (SchemaAttribute attribute : {CHILD, VALUES, NUMBER})
    {
        Element & original = set.find(labelOf(attribute));
        Templates::auto_ptr<Element> const copy = original.clone(target);
        EXPECT_EQ(classOf(*copy), classOf(original));
        EXPECT_EQ(&copy->metadataSet(), &target);
        EXPECT_EQ(copy->metaAttribute(), original.metaAttribute());
        EXPECT_EQ(written(*copy, 2), written(original, 2));
    }
    EXPECT_THAT(other.log, ElementsAre("added 20 (empty)", "removed 20", "added 30 (empty)", "removed 30"));
}

TEST_F(ElementTest, IsOfTheClassOfItsAttribute)
{
    struct Case
    {
        SchemaAttribute attribute;
        std::type_info const & type;
    };
    Case const CASES[] = {
        {NUMBER, typeid(SimpleElement)},        {CHILD, typeid(ReferenceElement)},
        {PEER, typeid(ReferenceElement)},       {CHILDREN, typeid(ArrayReferenceElement)},
        {PEERS, typeid(BatchReferenceElement)}, {VALUES, typeid(ArrayElement)},
        {MARKS, typeid(BatchElement)},
    };
    for (Case const & c : CASES)
    {
        Attribute const misplaced(
            new MetaMetadata::MisplacedAttribute(*schema.dictionary()->findMetaElement(labelOf(c.attribute))));
        Templates::auto_ptr<Element> const made(ElementFactory::create(misplaced, set));
        EXPECT_EQ(classOf(*made), c.type);
        EXPECT_EQ(classOf(set.find(labelOf(c.attribute))), c.type);
        EXPECT_TRUE(made->empty());
    }
    Templates::auto_ptr<Element> const made(ElementFactory::create(unknown, set));
    EXPECT_EQ(classOf(*made), typeid(SimpleElement));
    EXPECT_EQ(made->label(), MetadataULs::null());
}

}}}

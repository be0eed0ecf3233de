#include "Metadata/Element.h"

#include "KLV/Value.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "Metadata/ArrayElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/Unknown.h"
#include "support/ChangeLog.h"
#include "support/Failure.h"

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

auto const strong = referenceTo<Types::StrongReference>;
auto const weak = referenceTo<Types::WeakReference>;

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
    ElementTest()
    {
        partition.metadata.addMetadataListener(Templates::SharedPtr<PartitionMetadataListener>(&changes, false), false);
    }

    template <class Class>
    Class & element(SchemaAttribute attribute)
    {
        return elementOf<Class>(set, attribute);
    }

    // What an element writes, with a length field of that many bytes.
    Bytes written(Element const & element, int lengthSize)
    {
        BytesSink sink;
        element.serialize(sink, partition.metadata.partitionDictionary(), lengthSize);
        return sink.bytes();
    }

    Attribute unknown{new MetaMetadata::UnknownAttribute(tagOf(0x8123), MetaMetadata::UnknownAttribute::InvalidValue)};
    ChangeLog changes;
    Partition partition;
    MetadataSet & set = partition.node(1);
    MetadataSet & target = partition.node(5);
};

TEST_F(ElementTest, HoldsOneValue)
{
    auto & required = element<SimpleElement>(NUMBER);
    required.set(number<Types::UInt32>(7), false);
    required.set(number<Types::UInt32>(8), false);
    EXPECT_FAILURE(InvalidChange,
                   "Setting value with an invalid type. Value Type of new value: UInt16 Value type of elementUInt32",
                   required.set(number<Types::UInt16>(9), true));
    EXPECT_FAILURE(InvalidChange, "Value 'Number' is required according to Schema", required.set(Simple(), false));
    EXPECT_EQ(written(required, 2), hex("01 10 00 04 00 00 00 08"));
    required.set(Simple(), true);
    EXPECT_THAT(changes.take(), ElementsAre("added 16", "updated 16", "removed 16"));
}

TEST_F(ElementTest, RefersToOneSet)
{
    auto & child = element<ReferenceElement>(CHILD);
    auto & peer = element<ReferenceElement>(PEER);
    child.set(&target);
    peer.set(&target);
    EXPECT_EQ(child.value()->uuid(), numberedUUID(5));
    EXPECT_EQ(written(peer, 1), hex("01 22 10 EE EE EE EE EE EE EE EE EE EE EE EE 00 00 00 05"));
    child.setUnverifiedReference(strong(6));
    EXPECT_THAT(changes.take(), ElementsAre("added 32", "added 34", "updated 32"));

    EXPECT_FAILURE(InvalidChange,
                   "Setting value with an invalid type. Value Type of new value: WeakReference Value type of "
                   "elementStrongReference",
                   child.setUnverifiedReference(weak(7)));
    EXPECT_FAILURE(MetadataSetReferenceNotAllowed,
                   "ReferenceElement with UL 06.0e.2b.34.01.01.01.01.7f.00.00.00.00.00.00.20 cannot reference set with "
                   "key '06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.2f.00'. Must reference one of: "
                   "[06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.7e.00]",
                   child.set(&partition.preface(2)));
    EXPECT_FAILURE(NotFound, "The metadata set has no instance identifier to refer to",
                   child.set(partition.load(packet(nodeKey(), {}))));
    EXPECT_EQ(child.value()->uuid(), numberedUUID(6));

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
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Collection can not be changed to another type!",
                   values.set(rowOf<Types::Batch, Types::UInt16>({1, 2})));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Setting collection with an invalid Sub Type.",
                   values.set(rowOf<Types::Array, Types::UInt8>({1, 2})));
    EXPECT_TRUE(changes.take().empty());

    values.set(rowOf<Types::Array, Types::UInt16>({1, 2}));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Schema does not allow less than 2 elements in the collection.",
                   values.remove(1));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Setting value with an invalid Sub Type in a collection.",
                   values.append(number<Types::UInt8>(1)));
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to insert an element past the end of the data",
                   values.insertAt(3, number<Types::UInt16>(9)));
    values.insertAt(0, number<Types::UInt16>(9));
    EXPECT_FAILURE(InvalidChange, "Value 'Values': Schema only allows to add 3 elements to this collection.",
                   values.append(number<Types::UInt16>(1)));
    EXPECT_EQ(written(values, 2), hex("01 30 00 0E 00 00 00 03 00 00 00 02 00 09 00 01 00 02"));

    // A collection without items is a value.
    marks.append(number<Types::UInt8>(5));
    marks.remove(0);
    EXPECT_EQ(written(marks, 2), hex("01 31 00 08 00 00 00 00 00 00 00 01"));
    marks.set(Row(new Types::Batch(1)));
    marks.set(Row());
    EXPECT_THAT(changes.take(), ElementsAre("added 48", "new 0 among 2 of 48", "added 49", "new 0 among 0 of 49",
                                            "no 0 among 1 of 49", "updated all of 49", "removed 49"));
}

TEST_F(ElementTest, RefersToARowOfSets)
{
    auto & children = element<ArrayReferenceElement>(CHILDREN);
    auto & peers = element<BatchReferenceElement>(PEERS);
    children.append(&target);
    children.insertUnverifiedReferenceAt(0, strong(4));
    children.insertAt(1, &target);
    EXPECT_EQ(children.at(0).uuid(), numberedUUID(4));
    EXPECT_EQ(children.at(1).uuid(), numberedUUID(5));
    EXPECT_EQ(children.size(), 3u);

    EXPECT_FAILURE(InvalidChange,
                   "Trying to set a WeakReference on a ArrayReferenceElement expecting a StrongReference",
                   children.appendUnverifiedReference(weak(1)));
    EXPECT_FAILURE(InvalidChange,
                   "Trying to set a StrongReference on a BatchReferenceElement expecting a WeakReference",
                   peers.appendUnverifiedReference(strong(1)));
    // Only the first item is looked at when a collection is set.
    Row mixed(new Types::Array(16));
    mixed->append(strong(1));
    mixed->append(Simple(new Types::UUID(numberedUUID(2))));
    children.set(mixed);
    EXPECT_FAILURE(InvalidType, "The value is no reference", children.at(1));

    // An empty array that was loaded needn't say how large its items are.
    BytesSource source(Bytes(8, 0));
    KLV::Value empty(source, 8);
    children.load(empty);
    children.insertAt(0, &target);
    EXPECT_EQ(children.at(0).uuid(), numberedUUID(5));
}

TEST_F(ElementTest, RefusesLengthsThatDoNotFit)
{
    Bytes const large = repeated(70000, 0xAB);
    SimpleElement const wrapped(Simple(new Types::Unknown(large.data(), 70000)), unknown, set);
    EXPECT_EQ(written(wrapped, 4), hex("81 23 00 00 11 70") + large.first(0x1170)) << "at 16 bits, whatever the field";

    SimpleElement const element(Simple(new Types::Unknown(large.data(), 256)), unknown, set);
    EXPECT_FAILURE(InvalidElementLength, "Type size exceeded", written(element, 1));

    auto const empty =
        partition.schema.partitionDictionary(Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack));
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

    changes.refuses = true;
    EXPECT_FAILURE(OperationNotAllowed, "refused", element<SimpleElement>(NUMBER).set(Simple(), true));
    EXPECT_FAILURE(OperationNotAllowed, "refused", element<ArrayElement>(VALUES).append(number<Types::UInt16>(3)));
    EXPECT_FAILURE(OperationNotAllowed, "refused", element<ArrayElement>(VALUES).set(Row()));
    EXPECT_FAILURE(OperationNotAllowed, "refused", SimpleElement(number<Types::UInt8>(1), unknown, set));
    EXPECT_EQ(written(set.find(labelOf(NUMBER)), 2), number7);
    EXPECT_EQ(written(set.find(labelOf(VALUES)), 2), values);
}

}}}

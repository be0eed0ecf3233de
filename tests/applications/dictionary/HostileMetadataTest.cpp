// Header metadata that is made to do harm: it loads, says what is wrong with
// it when it is written, and is written without loss where it can be.

#include "Metadata/Structural/PackageHelpers.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Platform/BigEndian.h"
#include "support/Failure.h"
#include "support/HeaderMetadata.h"
#include "support/Partition.h"

namespace Vantry { namespace Tests { namespace {

using namespace Metadata::Structural::StructuralMetadataKeys;
using Order = Metadata::PartitionMetadata::SerializationOrder;

Order const ORDERS[] = {Order::PrefaceFirst,       Order::ForwardDepthFirst,
                        Order::ForwardBySiblings,  Order::NormalizedForward,
                        Order::NormalizedReversed, Order::NormalizedReversedExperimentalFirst};

template <class Number>
Bytes bigEndian(Number number)
{
    Bytes bytes(sizeof(number));
    Platform::writeBigEndian<Number>(number, bytes.data());
    return bytes;
}

Bytes triplet(unsigned int tag, Bytes const & value)
{
    return bigEndian(static_cast<UInt16>(tag)) + bigEndian(static_cast<UInt16>(value.size())) + value;
}

Bytes reference(unsigned int tag, unsigned int number)
{
    return triplet(tag, serialized(numberedUUID(number)));
}

Bytes references(unsigned int tag, std::vector<unsigned int> const & numbers)
{
    Bytes items = bigEndian(static_cast<UInt32>(numbers.size())) + bigEndian(UInt32(16));
    for (unsigned int number : numbers)
        items += serialized(numberedUUID(number));
    return triplet(tag, items);
}

Bytes set(KLV::Key const & key, unsigned int number, Bytes const & triplets = {})
{
    return packet(key, reference(0x3C0A, number) + triplets);
}

// A primer pack with one label, and others for as many tags from the first.
Bytes primer(unsigned int first = 0, unsigned int count = 0)
{
    Packs::PrimerPack pack;
    pack.add(tagOf(INSTANCE_UID_TAG), Metadata::MetadataULs::instanceUID());
    for (unsigned int tag = first; tag < first + count; ++tag)
        if (tag != INSTANCE_UID_TAG)
            pack.add(tagOf(tag),
                     Types::UniversalLabel(
                         (hex("06 0E 2B 34 01 01 01 01 7F 00 00 00") + bigEndian(static_cast<UInt32>(tag))).data()));
    return serialized(pack);
}

// A Preface, a ContentStorage and a source package with a descriptor.
Bytes tree(unsigned int descriptor)
{
    return set(preface(), 1, reference(0x3B03, 2)) + set(contentStorage(), 2, references(0x1901, {3})) +
           set(sourcePackage(), 3, reference(0x4701, descriptor));
}

Bytes descriptor(unsigned int number, std::vector<unsigned int> const & owned)
{
    return set(multipleDescriptor(), number, references(0x3F01, owned));
}

TEST(HostileMetadata, OwnedTwiceIsWrittenByKeyAlone)
{
    std::tuple<char const *, Bytes, char const *> const CASES[] = {
        {"in a ring", descriptor(4, {5}) + descriptor(5, {4}), "04"},
        {"through the top", descriptor(4, {2}), "02"},
        {"by two", descriptor(4, {5, 6}) + descriptor(5, {7}) + descriptor(6, {7}) + descriptor(7, {}), "07"},
    };
    for (auto const & [name, sets, culprit] : CASES)
    {
        SCOPED_TRACE(name);
        HeaderMetadata const header(primer() + tree(4) + sets);
        std::string const message =
            std::string("Circular reference for this instanceUID: ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.00.00.00.") +
            culprit;
        for (Order const order : ORDERS)
            if (order != Order::PrefaceFirst)
                EXPECT_FAILURE(InvalidFormat, message.c_str(), header.written(order));
        EXPECT_EQ(HeaderMetadata(header.written(Order::PrefaceFirst))->size(), header->size());
        EXPECT_FALSE(Metadata::Structural::hasExternalEssence(*header));
    }
}

// A primer or a set that uses up all tags leaves none for what the schema has
// beside them.
TEST(HostileMetadata, MayUseAllTags)
{
    Bytes all;
    for (unsigned int tag = 1; tag <= 0xFFFF; ++tag)
        all += triplet(tag, {});
    HeaderMetadata const fullPrimer(primer(1, 0xFFFF) + set(preface(), 1));
    HeaderMetadata const fullSet(primer() + set(preface(), 1) + packet(strangeKey(), all));
    EXPECT_EQ(fullSet->find(strangeKey()).at(0)->invalidSize(), 0xFFFFu);

    for (HeaderMetadata const * header : {&fullPrimer, &fullSet})
        EXPECT_FAILURE(InvalidLocalTag, "All LocalTags are used", header->written(Order::PrefaceFirst));
}

TEST(HostileMetadata, MayBeDeep)
{
    unsigned int const LAST = 100000;
    Bytes bytes = primer() + tree(4);
    for (unsigned int number = 4; number < LAST; ++number)
        bytes += descriptor(number, {number + 1});
    bytes += descriptor(LAST, {});

    HeaderMetadata const header(bytes);
    ASSERT_EQ(header->size(), LAST);
    for (Order const order : ORDERS)
        EXPECT_EQ(header.written(order).size(), header->serializedSize(true, true));
    EXPECT_FALSE(Metadata::Structural::hasExternalEssence(*header));
}

}}}

#include "Metadata/MetadataSet.h"

#include "DataIO/Slice.h"
#include "MetaMetadata/AbstractMetaAttributeVisitor.h"
#include "MetaMetadata/MisplacedAttribute.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/DMS1/DMS1MetadataULs.h"
#include "Metadata/DarkMetadataSet.h"
#include "Metadata/DarkParsedGroup.h"
#include "Types/UInt16.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/Elements.h"
#include "support/Failure.h"
#include "support/Values.h"

#include <gmock/gmock.h>

#include <sstream>

namespace Vantry { namespace Metadata { namespace {

using namespace Tests;
using testing::ElementsAre;

std::string const UNKNOWN_REASONS[] = {"tag not in primer", "label not in dictionary", "static tag not in dictionary",
                                       "invalid tag",       "label collision",         "invalid value"};

Bytes keyBytes(KLV::Key const & key)
{
    return Bytes(key.rawBuffer(), key.rawBuffer() + key.size());
}

// The node key with another coding of tags and lengths.
KLV::Key keyWithCoding(unsigned char registryDesignator)
{
    KLV::Key key = strangeKey();
    key[5] = registryDesignator;
    return key;
}

// What is known of an attribute, in words.
class Describe : public MetaMetadata::AbstractMetaAttributeVisitor
{
public:
    void visit(MetaMetadata::UnknownAttribute const & attribute) override
    {
        text = UNKNOWN_REASONS[attribute.reason()];
    }
    void visit(MetaMetadata::MisplacedAttribute const &) override { text = "misplaced"; }
    void visit(MetaMetadata::MetaAttribute const &) override { text = "known"; }

    std::string text;
};

std::string describe(Element const & element)
{
    Describe visitor;
    element.metaAttribute()->accept(visitor);
    return visitor.text;
}

class MetadataSetTest : public testing::Test
{
protected:
    MetadataSet node() const { return MetadataSet(nodeKey(), schema.set(nodeKey()), nullptr); }

    Bytes written(MetadataSet const & set, bool withInvalid = true) const
    {
        BytesSink sink;
        set.serialize(sink, *dictionary, withInvalid);
        EXPECT_EQ(set.serializedSize(withInvalid), sink.bytes().size());
        return sink.bytes();
    }

    // The packet that comes out when one with this value is loaded.
    Bytes reloaded(MetadataSet & set, Bytes const & value)
    {
        set.load(*BytesPacket(packet(set.key(), value)), *dictionary, true);
        return written(set);
    }

    // Why the invalid elements of a set are there.
    static std::string invalidOf(MetadataSet const & set)
    {
        std::ostringstream text;
        for (auto at = set.invalidBegin(); at != set.invalidEnd(); ++at)
            text << (at != set.invalidBegin() ? ", " : "") << describe(**at);
        return text.str();
    }

    std::unique_ptr<PartitionDictionary> primed() const
    {
        Templates::auto_ptr<Packs::PrimerPack> primer(new Packs::PrimerPack(schema.partitionDictionary()->primer()));
        primer->remove(labelOf(TEXT));
        primer->remove(labelOf(VALUES));
        primer->remove(labelOf(MARKS));
        primer->add(tagOf(0x8001), labelOf(0x99));
        primer->add(tagOf(0x0177), labelOf(0x98));
        primer->add(tagOf(VALUES), labelOf(NUMBER));
        primer->add(tagOf(MARKS), labelOf(0x97));
        return schema.partitionDictionary(primer);
    }

    Schema schema;
    // Lacks TEXT, and gives VALUES and MARKS other labels.
    std::unique_ptr<PartitionDictionary> dictionary = primed();
};

TEST_F(MetadataSetTest, KeepsWhatTheFileHolds)
{
    // What isn't rewritten is null, and each has the reasons why something in it is invalid.
    std::tuple<char const *, char const *, char const *, char const *> const CASES[] = {
        {"empty", "", nullptr, ""},
        {"sorted by label", "01 20 0010 00000000000000000000000000000005 01 10 0004 00000007",
         "01 10 0004 00000007 01 20 0010 00000000000000000000000000000005", ""},
        {"the last of two", "01 10 0004 00000007 01 10 0004 00000008", "01 10 0004 00000008", ""},
        {"tag 00.00", "00 00 0002 ABCD", nullptr, "invalid tag"},
        {"unknown tag", "80 00 0000 80 05 0001 AA 7F 01 0001 BB", nullptr,
         "tag not in primer, tag not in primer, tag not in primer"},
        {"unknown label", "80 01 0001 AA", nullptr, "label not in dictionary"},
        {"unknown static tag", "01 77 0001 AA", nullptr, "static tag not in dictionary"},
        {"another label in the primer", "01 30 0004 00000009", "01 10 0004 00000009", ""},
        {"an unknown label in the primer", "01 31 0001 AA", nullptr, "label collision"},
        {"in another set", "01 40 0002 0001", nullptr, "misplaced"},
        {"too short", "01 10 0003 010203", nullptr, "invalid value"},
        {"too short for a codestream", "01 32 0003 010203", nullptr, "invalid value"},
        {"items too small", "01 21 000C 00000002 00000002 AABBCCDD", nullptr, "invalid value"},
        {"billions of items", "01 21 0008 FFFFFFFF 00000010", nullptr, "invalid value"},
        {"cut off", "01 32 FFFF 0102", "01 32 0002 0102", "invalid value"},
    };
    for (auto const & [name, value, rewritten, invalid] : CASES)
    {
        SCOPED_TRACE(name);
        MetadataSet set = node();
        Bytes const expected = hex(rewritten != nullptr ? rewritten : value);
        EXPECT_EQ(reloaded(set, hex(value)), packet(nodeKey(), expected));
        EXPECT_EQ(invalidOf(set), invalid);
        EXPECT_EQ(written(set, false).size() < written(set).size(), *invalid != '\0');
    }

    // Tags that the primer lacks are found in the dictionary, and are known
    // then by the partition's primer alone.
    MetadataSet set = node();
    set.load(*BytesPacket(packet(nodeKey(), hex("01 11 0002 0041"))), *dictionary, true);
    EXPECT_FALSE(set.find(labelOf(TEXT)).empty());
}

TEST_F(MetadataSetTest, StopsAtATripletWithoutLength)
{
    auto const load = [&](char const * value)
    {
        MetadataSet set = node();
        LengthFailure failure = lengthFailureOf([&] { reloaded(set, hex(value)); });
        EXPECT_FALSE(set.find(labelOf(NUMBER)).empty());
        return failure;
    };
    EXPECT_EQ(load("01 10 0004 00000007 01"), (LengthFailure{"Invalid data size in Value", {0x01}}));
    EXPECT_EQ(load("01 10 0004 00000007 01 11 00"),
              (LengthFailure{"Invalid data size in Value to create an element in the metadataSet.", {1, 0x11, 0}}));

    // The packet claims more than the source has.
    MetadataSet set = node();
    BytesPacket shortened(packet(nodeKey(), hex("01 10 0004 00000007 00")).first(28));
    EXPECT_EQ(lengthFailureOf([&] { set.load(*shortened, *dictionary, true); }),
              (LengthFailure{"Invalid data size in Value", {}}));
}

TEST_F(MetadataSetTest, ReadsLengthsOfEachSize)
{
    for (unsigned char coding : {0x13, 0x43, 0x63, 0x5B})
    {
        DarkParsedGroup set(keyWithCoding(coding), nullptr);
        EXPECT_FAILURE(InvalidMetadataSet, "Invalid Metadata Set local field length or length field length",
                       reloaded(set, hex("80 05 00 00")));
    }
    for (auto const & [coding, value] :
         {std::pair(0x33, "80 05 02 AABB"), {0x53, "80 05 0002 AABB"}, {0x73, "80 05 00000002 AABB"}})
    {
        DarkParsedGroup set(keyWithCoding(static_cast<unsigned char>(coding)), nullptr);
        EXPECT_EQ(reloaded(set, hex(value)), packet(set.key(), hex(value)));
    }

    // The length field of the packet keeps its size.
    Bytes const byteLong = keyBytes(strangeKey()) + hex("05 80 05 0001 AA");
    DarkParsedGroup small(strangeKey(), nullptr);
    small.load(*BytesPacket(byteLong), *dictionary, true);
    EXPECT_EQ(written(small), byteLong);
}

TEST_F(MetadataSetTest, KnowsTwoAttributesBetterThanTheFile)
{
    // Packages are meant by 19.01, whatever the primer says.
    Templates::auto_ptr<Packs::PrimerPack> primer(new Packs::PrimerPack);
    primer->add(tagOf(PACKAGES_TAG), labelOf(0x99));
    auto const odd = schema.partitionDictionary(primer);
    MetadataSet preface(MetadataKeys::preface(), schema.set(MetadataKeys::preface()), nullptr);
    Bytes const packages = hex("19 01 0018 00000001 00000010") + Bytes(16, 0xEE);
    preface.load(*BytesPacket(packet(preface.key(), packages)), *odd, true);
    EXPECT_EQ(elementOf<BatchReferenceElement>(preface, MetadataULs::packages()).size(), 1u);

    // A basic UMID is half of an extended one.
    Types::UniversalLabel const & clip = DMS1::DMS1MetadataULs::extendedClipID();
    schema.add(clip, 0x0150, Types::Identifiers::UMID64);
    schema.add(strangeKey(), {{clip}});
    dictionary = schema.partitionDictionary();
    MetadataSet whole(strangeKey(), schema.set(strangeKey()), nullptr);
    EXPECT_EQ(reloaded(whole, hex("01 50 0020") + counting(32)),
              packet(strangeKey(), hex("01 50 0040") + counting(32) + Bytes(32, 0)));
}

TEST_F(MetadataSetTest, IsKnownByItsIdentifier)
{
    Bytes const identifier = hex("3C 0A 0010") + Bytes(16, 0xEE);

    MetadataSet set = node();
    reloaded(set, identifier);
    EXPECT_EQ(serialized(*set.instanceUID()), Bytes(16, 0xEE));

    DarkParsedGroup dark(strangeKey(), nullptr);
    EXPECT_EQ(dark.instanceUID(), nullptr);
    reloaded(dark, hex("80 05 0001 AA") + identifier);
    EXPECT_EQ(serialized(*dark.instanceUID()), Bytes(16, 0xEE));

    Element & first = **dark.invalidBegin();
    dark.removedInvalidElement(&first);
    EXPECT_EQ(written(dark), packet(strangeKey(), identifier));
    EXPECT_FAILURE(NotFound, "Element not found in Invalid Element list!", dark.removedInvalidElement(nullptr));

    // The text stands on the beginning of the message.
    EXPECT_FAILURE(NotFound, "06.0e.2b.34.01.01.01.01.7f.00.00.00.00.00.00.40 ", set.find(labelOf(ELSEWHERE)));
    EXPECT_EQ(set.findElement(labelOf(ELSEWHERE)), nullptr);
    EXPECT_FAILURE(InvalidMetadataSet, "MetadataSet Key and MetaMetadataSet do not agree",
                   MetadataSet(strangeKey(), schema.set(nodeKey()), nullptr));
}

TEST_F(MetadataSetTest, IsCopiedWithoutItsReferences)
{
    MetadataSet set = node();
    reloaded(set, hex("01 10 0004 00000007 80 05 0001 AA 3C 0A 0010") + Bytes(16, 0xEE) +
                      hex("01 20 0010 00000000000000000000000000000005"));
    std::unique_ptr<MetadataSet> const copy(set.clone(false, nullptr));
    EXPECT_NE(*copy->instanceUID(), *set.instanceUID());
    Bytes const identifier(copy->instanceUID()->rawBuffer(), copy->instanceUID()->rawBuffer() + 16);
    EXPECT_EQ(written(*copy),
              packet(nodeKey(), hex("3C 0A 0010") + identifier + hex("01 10 0004 00000007 80 05 0001 AA")));
}

TEST_F(MetadataSetTest, TellsWhatIsMissing)
{
    using Status = Schema::Status;
    std::vector<Schema::Place> places;
    unsigned char attribute = 0x80;
    for (char const * condition : {"", "if"})
        for (Status::Status status : {Status::Req, Status::EReq, Status::DReq, Status::BEffort, Status::Opt})
            for (int i = 0; i < 3; ++i)
            {
                schema.add(labelOf(attribute), 0x0100u + attribute, Types::Identifiers::UTF16CharString);
                places.push_back({labelOf(attribute++), "Name", status, condition, new Types::UInt16(0x0041)});
            }
    schema.add(strangeKey(), places);

    // Of each three, one without value, one that starts with the
    // distinguished one, and one that doesn't.
    MetadataSet set(strangeKey(), schema.set(strangeKey()), nullptr);
    Bytes value;
    for (unsigned char at = 0x80; at < attribute; ++at)
        if (at % 3 != 2) // 80h is 2 modulo 3
            value += Bytes{0x01, at} + hex(at % 3 == 0 ? "0004 00410042" : "0002 0042");
    dictionary = schema.partitionDictionary();
    reloaded(set, value);

    using Walk = void (MetadataSet::*)(Templates::vector<Element *> &) const;
    auto const walk = [&](Walk which)
    {
        Templates::vector<Element *> elements;
        (set.*which)(elements);
        std::vector<int> last;
        for (Element const * element : elements)
            last.push_back(element->label().rawBuffer()[15] - 0x80);
        return last;
    };
    EXPECT_THAT(walk(&MetadataSet::openElements), ElementsAre(0, 3));
    EXPECT_THAT(walk(&MetadataSet::incompleteElements), ElementsAre(9, 10));
    EXPECT_THAT(walk(&MetadataSet::possiblyOpenElements), ElementsAre(15, 18, 21, 24, 27));
    EXPECT_THAT(walk(&MetadataSet::possiblyIncompleteElements), ElementsAre(16, 19, 22, 25, 28));
    EXPECT_THAT(walk(&MetadataSet::possiblyForbiddenElements), ElementsAre(16, 17, 19, 20, 22, 23, 25, 26, 28, 29));
    EXPECT_THAT(walk(&MetadataSet::getSemanticsValidationElements),
                ElementsAre(15, 16, 18, 19, 21, 22, 24, 25, 27, 28));
}

TEST(DarkMetadataSet, KeepsBytes)
{
    Bytes const bytes = keyBytes(strangeKey()) + hex("82 00 03 AABBCC");
    DarkMetadataSet set(*BytesPacket(bytes));
    EXPECT_EQ(serialized(set), bytes);
    EXPECT_EQ(set.serializedSize(), bytes.size());

    set.value(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice));
    EXPECT_EQ(serialized(set), keyBytes(strangeKey()) + hex("82 00 00"));

    // A length of 2^40 over three bytes asks for no memory.
    EXPECT_EQ(lengthFailureOf(
                  [] { DarkMetadataSet(*BytesPacket(keyBytes(strangeKey()) + hex("86 01 00 00 00 00 00 AABBCC"))); }),
              (LengthFailure{"Invalid data size in Value", hex("AABBCC")}));
}

}}}

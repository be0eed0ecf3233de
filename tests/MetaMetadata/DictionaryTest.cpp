#include "MetaMetadata/Dictionary.h"

#include "MetaMetadata/Helpers.h"
#include "MetaMetadata/MetaCollection.h"
#include "MetaMetadata/MetaReferenceCollection.h"
#include "MetaMetadata/MetaReferenceElement.h"
#include "MetaMetadata/MetaSimpleElement.h"
#include "MetaMetadata/MisplacedAttribute.h"
#include "MetaMetadata/UnknownAttribute.h"
#include "Types/UInt8.h"
#include "support/Bytes.h"
#include "support/Failure.h"

namespace Vantry { namespace MetaMetadata { namespace {

namespace Id = Types::Identifiers;
using Limits = MetaCollectionElement::CollectionSizeLimits;

Templates::wstring wide(char const * text)
{
    return Platform::stringToWstring(text);
}

Types::UniversalLabel label(unsigned char last)
{
    return Types::UniversalLabel(
        (Tests::hex("06 0E 2B 34 01 01 01 01 01 01 15 02 00 00 00") + Tests::Bytes{last}).data());
}

Types::LocalTag tag(unsigned char last)
{
    unsigned char const bytes[] = {0x3C, last};
    return Types::LocalTag(bytes);
}

KLV::Key key(unsigned char last)
{
    Tests::Bytes bytes = Tests::hex("06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 00 00");
    bytes[14] = last;
    return KLV::Key(bytes.data());
}

MetaReferenceHolder::Keys keys(unsigned char last)
{
    return MetaReferenceHolder::Keys(1, key(last));
}

Templates::SharedPtr<MetaAttribute> attribute(MetaElement const & element, char const * name = "Name",
                                              Types::BaseType const * distinguished = nullptr)
{
    Templates::SharedPtr<MetaAttribute> result(new MetaAttribute(
        element, AttributeRequiredStatus::Opt, Templates::auto_ptr<Types::BaseType const>(distinguished), nullptr));
    result->addProperty(wide("name"), wide(name));
    return result;
}

TEST(MetaElement, RefusesTypesThatItsClassCannotHave)
{
    EXPECT_FAILURE(InvalidMetaElement, "Tried to create a MetaSimpleElement with dataType: Batch",
                   MetaSimpleElement(label(1), Id::Batch));
    EXPECT_FAILURE(InvalidMetaElement, "Tried to create a MetaSimpleElement with dataType: WeakReference",
                   MetaSimpleElement(label(1), Id::WeakReference));
    EXPECT_FAILURE(InvalidMetaElement, "Tried to create a MetaReferenceElement with dataType: UUID",
                   MetaReferenceElement(label(1), keys(1), Id::UUID));
    EXPECT_FAILURE(InvalidMetaElement, "Tried to create a MetaCollectionElement derived class with dataType: UInt8",
                   MetaCollection(label(1), Limits(), Id::UInt8, Id::UInt8));
    EXPECT_FAILURE(InvalidMetaElement,
                   "Tried to create a MetaCollectionElement derived class with invalid limits: [3;2]",
                   MetaCollection(label(1), Limits(3, 2), Id::Array, Id::UInt8));
    EXPECT_FAILURE(InvalidMetaElement, "Tried to create a MetaCollection with dataSubType: StrongReference",
                   MetaCollection(label(1), Limits(2, 2), Id::Array, Id::StrongReference));
    EXPECT_FAILURE(InvalidMetaElement, "Tried to create a MetaReferenceCollection with dataType: UInt8",
                   MetaReferenceCollection(label(1), Limits(), keys(1), Id::Batch, Id::UInt8));
}

TEST(MetaElement, EqualsWhatAgreesInAllItsParts)
{
    MetaReferenceCollection const original(label(4), Limits(1, 2), keys(1), Id::Batch, Id::WeakReference);
    MetaReferenceCollection same(original);
    EXPECT_TRUE(original == same);

    same.addAllowedMetadataSet(key(2));
    EXPECT_FALSE(original == same);

    EXPECT_FALSE(original == MetaReferenceCollection(label(4), Limits(1, 3), keys(1), Id::Batch, Id::WeakReference));
    MetaReferenceElement const single(label(4), keys(1), Id::WeakReference);
    EXPECT_FALSE(static_cast<MetaElement const &>(original) == static_cast<MetaElement const &>(single));

    MetaValueHolder::Enumeration one(1), two(1);
    one[0] = Templates::SharedPtr<Types::BaseType const>(new Types::UInt8(1));
    two[0] = Templates::SharedPtr<Types::BaseType const>(new Types::UInt8(2));
    EXPECT_TRUE(MetaSimpleElement(label(1), one, Id::UInt8) == MetaSimpleElement(label(1), one, Id::UInt8));
    EXPECT_FALSE(MetaSimpleElement(label(1), one, Id::UInt8) == MetaSimpleElement(label(1), two, Id::UInt8));
}

TEST(MetaMetadataSet, TakesEachLabelOnce)
{
    MetaSimpleElement const element(label(1), Id::UInt8);
    MetaMetadataSet set(key(1));
    set.addMetaAttribute(attribute(element));
    EXPECT_FAILURE(AlreadySet,
                   "A MetaAttribute with UL 06.0e.2b.34.01.01.01.01.01.01.15.02.00.00.00.01 already exists in this "
                   "MetaMetadataSet\n",
                   set.addMetaAttribute(attribute(element)));
    EXPECT_EQ(set.metaAttributeCount(), 1u);
    EXPECT_TRUE(set.findMetaAttribute(label(1)));
}

TEST(AttributeRequiredStatus, KnowsItsTexts)
{
    AttributeRequiredStatus const & status = AttributeRequiredStatus::instance();
    char const * const texts[] = {"Req", "E/req", "D/req", "B.Effort", "Opt"};
    for (int i = 0; i < 5; ++i)
    {
        EXPECT_EQ(status.textFromStatus(static_cast<AttributeRequiredStatus::Status>(i)), wide(texts[i]));
        EXPECT_EQ(status.statusFromText(wide(texts[i]).c_str()), i);
    }

    EXPECT_FAILURE(NotFound, "StatusNotFound: opt", status.statusFromText(wide("opt").c_str()));
    EXPECT_FAILURE(NotFound,
                   "7tatusNotFound: ", status.textFromStatus(static_cast<AttributeRequiredStatus::Status>(7)));
}

TEST(Dictionary, LetsTheLastEntryOfATagOrLabelWin)
{
    Dictionary dictionary;
    dictionary.add(tag(1), label(1));
    dictionary.add(tag(2), label(2));
    dictionary.add(tag(1), label(2));

    EXPECT_EQ(*dictionary.find(tag(1)), label(2));
    EXPECT_EQ(*dictionary.find(label(2)), tag(1));
    // The partners that the old entries left behind.
    EXPECT_EQ(*dictionary.find(label(1)), tag(1));
    EXPECT_EQ(*dictionary.find(tag(2)), label(2));
    EXPECT_EQ(dictionary.find(label(3)), nullptr);
}

TEST(Dictionary, FindsByProperty)
{
    Dictionary dictionary;
    dictionary.add(label(1), Templates::auto_ptr<MetaElement>(new MetaSimpleElement(label(1), Id::UInt8)));
    dictionary.add(label(2), Templates::auto_ptr<MetaElement>(new MetaSimpleElement(label(2), Id::UInt8)));
    for (unsigned char i : {2, 1})
    {
        MetaMetadataSet set(key(i));
        set.addProperty(wide("kind"), wide(i == 1 ? "a" : "b"));
        set.addMetaAttribute(attribute(*dictionary.findMetaElement(label(1)), "x"));
        set.addMetaAttribute(attribute(*dictionary.findMetaElement(label(2)), "x"));
        dictionary.add(key(i), set);
    }

    EXPECT_EQ(dictionary.findMetaMetadataSetProperty(wide("kind"), wide("a")),
              Templates::vector<MetaMetadataSet const *>{dictionary.find(key(1))});

    auto const byAttribute = dictionary.findMetaMetadataSetWithMetaAtributeProperty(wide("name"), wide("x"));
    MetaMetadataSet const * const first = dictionary.find(key(1));
    MetaMetadataSet const * const second = dictionary.find(key(2));
    EXPECT_EQ(byAttribute, (Templates::vector<MetaMetadataSet const *>{first, first, second, second}));

    EXPECT_FAILURE(NotFound, "Property not found: name",
                   dictionary.findMetaElement(label(1))->getProperty(wide("name")));
}

TEST(Helpers, LeadFromAnAttributeToItsElement)
{
    using Attribute = Templates::SharedPtr<AbstractMetaAttribute const>;
    MetaSimpleElement const element(label(1), Id::UInt8);

    EXPECT_EQ(Helpers::abstractMetaAttributeToMetaElement(attribute(element)), &element);
    EXPECT_EQ(Helpers::abstractMetaAttributeToMetaElement(Attribute(new MisplacedAttribute(element))), &element);
    EXPECT_EQ(Helpers::abstractMetaAttributeToMetaElement(
                  Attribute(new UnknownAttribute(tag(1), UnknownAttribute::TagNotInPrimer))),
              nullptr);
}

}}}

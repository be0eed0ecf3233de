#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/MetaElement.h"
#include "MetaMetadata/MetaReferenceHolder.h"
#include "MetaMetadata/Visitors/GetMetaElementVisitor.h"
#include "Metadata/Structural/StructuralMetadataULList.h"
#include "Schema/Definition.h"
#include "Schema/Dictionaries.h"
#include "Schema/LabelNames.h"
#include "Schema/SchemaError.h"
#include "Utils/Text.h"
#include "support/Bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Vantry { namespace Schema { namespace {

using MetaMetadata::Dictionary;

Templates::wstring wide(char const * text)
{
    return Utils::stringToWstring(text);
}

KLV::Key key(char const * text)
{
    return KLV::Key(wide(text).c_str(), Types::StringRepresentationEncodingType::DOTTED_BYTES);
}

char const * const PREFACE = "06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.2f.00";

bool sameElements(Dictionary const & left, Dictionary const & right)
{
    return std::equal(left.metaElementBegin(), left.metaElementEnd(), right.metaElementBegin(), right.metaElementEnd(),
                      [](auto const & one, auto const & other)
                      { return one.first == other.first && *one.second == *other.second; });
}

TEST(Schema, IsTheSameFromTablesAndFromItsFile)
{
    auto const builtIn = builtInDictionary();
    Definition definition;
    definition.addFile(SCHEMA_FILE);
    auto const loaded = makeDictionary(definition.tables());

    EXPECT_GT(std::distance(builtIn->metaMetadataSetBegin(), builtIn->metaMetadataSetEnd()), 150);
    EXPECT_TRUE(sameElements(*builtIn, *loaded));
    EXPECT_TRUE(std::equal(builtIn->metaMetadataSetBegin(), builtIn->metaMetadataSetEnd(),
                           loaded->metaMetadataSetBegin(), loaded->metaMetadataSetEnd()));
    EXPECT_TRUE(std::equal(builtIn->localTag2ULBegin(), builtIn->localTag2ULEnd(), loaded->localTag2ULBegin(),
                           loaded->localTag2ULEnd()));
}

TEST(Schema, MeetsWhatTheLibraryAsksOfADictionary)
{
    auto const dictionary = builtInDictionary();
    Types::UniversalLabel const instanceUID(Tests::hex("06 0E 2B 34 01 01 01 01 01 01 15 02 00 00 00 00").data());

    for (auto set = dictionary->metaMetadataSetBegin(); set != dictionary->metaMetadataSetEnd(); ++set)
    {
        SCOPED_TRACE(Utils::wstringToString(set->second.getProperty(wide("name"))).c_str());
        for (auto attribute = set->second.metaAttributesBegin(); attribute != set->second.metaAttributesEnd();
             ++attribute)
        {
            EXPECT_NE(attribute->second->findProperty(wide("name")), nullptr);
            EXPECT_NE(attribute->second->findProperty(wide("RequiresSemanticsValidation")), nullptr);
            Types::LocalTag const * const tag = attribute->second->staticLocalTag();
            EXPECT_TRUE(tag == nullptr || *dictionary->find(*tag) == attribute->first);
        }
    }

    for (auto element = dictionary->metaElementBegin(); element != dictionary->metaElementEnd(); ++element)
    {
        auto const * const holder =
            MetaMetadata::Visitors::getMetaElement<MetaMetadata::MetaReferenceHolder>(element->second);
        if (holder == nullptr)
            continue;
        SCOPED_TRACE(Utils::wstringToString(element->second->getProperty(wide("name"))).c_str());
        for (KLV::Key const & allowed : holder->allowedMetadataSets())
            EXPECT_NE(dictionary->find(allowed), nullptr) << allowed;
    }

    EXPECT_TRUE(dictionary->find(key(PREFACE))->findMetaAttribute(instanceUID));
}

TEST(Schema, NamesAttributesAsTheLibraryDoes)
{
    auto const dictionary = builtInDictionary();
#define EXPECT_NAMED(name, bytes)                                                         \
    if (MetaMetadata::MetaElement const * const element =                                 \
            dictionary->findMetaElement(Types::UniversalLabel(Tests::hex(bytes).data()))) \
        EXPECT_EQ(element->getProperty(wide("symbol")), wide(#name));                     \
    else                                                                                  \
        EXPECT_STREQ(#name, "null");
    VANTRY_STRUCTURAL_METADATA_ULS(EXPECT_NAMED)
}

TEST(Schema, TakesWhatAFileAddsAndReplaces)
{
    char const * const addition = R"({
        "elements": {
            "shelf": {"name": "Shelf", "label": "06.0e.2b.34.01.01.01.01.0f.00.00.00.00.00.00.01",
                      "type": "Array", "of": "UInt8", "minimum": 1, "maximum": 3, "tag": "7f.01"},
            "inventory": {"label": "06.0e.2b.34.01.01.01.01.0f.00.00.00.00.00.00.02",
                          "type": "StrongReference", "references": ["archive"]}
        },
        "sets": {
            "archive": {"name": "Archive", "key": "06.0e.2b.34.02.53.01.01.0f.00.00.00.00.00.00.01",
                        "attributes": {"instanceUID": "Req", "shelf": {"status": "Opt", "semantics": "Where known."}}},
            "preface": {"key": "06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.2f.00",
                        "attributes": {"instanceUID": "Req", "inventory": "Opt"}}
        },
        "labels": {"06.0e.2b.34.04.01.01.01.0f.00.00.00.00.00.00.09": "Our pattern"}
    })";

    Definition definition(builtInTables());
    definition.addText(addition, "ours.json");
    Tables const tables = definition.tables();
    auto const dictionary = makeDictionary(tables);

    KLV::Key const archive = key("06.0e.2b.34.02.53.01.01.0f.00.00.00.00.00.00.01");
    ASSERT_NE(dictionary->find(archive), nullptr);
    EXPECT_EQ(dictionary->find(archive)->metaAttributeCount(), 2u);
    EXPECT_EQ(dictionary->find(key(PREFACE))->metaAttributeCount(), 2u);
    EXPECT_EQ(tables.sets.count, builtInTables().sets.count + 1);

    auto const shelves = dictionary->findMetaElementProperty(wide("name"), wide("Shelf"));
    ASSERT_EQ(shelves.size(), 1u);
    auto const * const shelf =
        MetaMetadata::Visitors::getMetaElement<MetaMetadata::MetaCollectionElement>(shelves.front());
    ASSERT_NE(shelf, nullptr);
    EXPECT_EQ(shelf->collectionSizeLimits().maximum, 3u);

    Tests::Bytes const pattern = Tests::hex("06 0E 2B 34 04 01 01 01 0F 00 00 00 00 00 00 09");
    EXPECT_STREQ(findLabelName(tables, pattern.data()), "Our pattern");
}

TEST(Schema, NamesFileEntryAndFieldOfAFault)
{
    std::pair<char const *, char const *> const cases[] = {
        {"[]", "f: must be an object"},
        {R"({"element": {}})", "f, field 'element': is not known"},
        {R"({"elements": {"e": {"type": "UInt8"}}})", "f: element 'e', field 'label': is missing"},
        {R"({"elements": {"e": {"label": "06.0e", "type": "UInt8"}}})",
         "f: element 'e', field 'label': must be 16 bytes in hexadecimal, with dots between them"},
        {R"({"elements": {"e": {"label": "00000000000000000000000000000000", "type": "UInt7"}}})",
         "f: element 'e', field 'type': there is no type 'UInt7'"},
        {R"({"elements": {"e": {"label": "00000000000000000000000000000000", "type": "WeakReference",
             "references": ["nowhere"]}}})",
         "f: element 'e', field 'references': there is no set 'nowhere'"},
        {R"({"elements": {"e": {"label": "00000000000000000000000000000000", "type": "UInt8", "tag": "3c.0a"}}})",
         "f: element 'e', field 'tag': belongs to element 'instanceUID' too"},
        {R"({"elements": {"e": {"label": "00000000000000000000000000000000", "type": "UInt8",
             "distinguished": "0101"}}})",
         "f: element 'e', field 'distinguished': is no value of the type in its wire form"},
        {R"({"elements": {"instanceUID": {"label": "06.0e.2b.34.01.01.01.02.05.20.07.01.08.00.00.00",
             "type": "UUID"}}})",
         "f: built-in set 'sequence', field 'attributes': has element 'instanceUID' twice"},
        {R"({"sets": {"s": {"key": "00000000000000000000000000000000", "attributes": {"instanceUID": "Maybe"}}}})",
         "f: set 's', attribute 'instanceUID', field 'status': 'Maybe' is none of Req, E/req, D/req, B.Effort and "
         "Opt"},
        {R"({"sets": {"s": {"key": "00000000000000000000000000000000", "attributes": {"nothing": "Opt"}}}})",
         "f: set 's', field 'attributes': there is no element 'nothing'"},
    };

    for (auto const & [text, message] : cases)
    {
        SCOPED_TRACE(text);
        try
        {
            Definition definition(builtInTables());
            definition.addText(text, "f");
            definition.tables();
            ADD_FAILURE() << "no failure";
        }
        catch (SchemaError const & error)
        {
            EXPECT_STREQ(error.what(), message);
        }
    }

    EXPECT_THROW(Definition().addText("{", "f"), SchemaError);
    EXPECT_THROW(Definition().addFile("no such file"), SchemaError);
}

TEST(LabelNames, PassOverTheVersion)
{
    Tests::Bytes label = Tests::hex("06 0E 2B 34 04 01 01 01 0D 01 02 01 01 01 09 00");
    char const * const name = findLabelName(builtInTables(), label.data());
    ASSERT_NE(name, nullptr);
    label[7] = 0x7E;
    EXPECT_STREQ(findLabelName(builtInTables(), label.data()), name);
    label[0] = 0;
    EXPECT_EQ(findLabelName(builtInTables(), label.data()), nullptr);
}

}}}

#include "KLV/FillItem.h"
#include "KLV/KeyPredicates.h"
#include "Types/LabelPredicates.h"
#include "Types/UniversalLabel.h"
#include "support/Bytes.h"

#include <gtest/gtest.h>

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

std::pair<char const *, bool (*)(KLV::Key const &) noexcept> const PREDICATES[] = {
    {"local set", KLV::isLocalSet},
    {"MXF set", KLV::isMXFDefaultLocalSet},
    {"pack", KLV::isFixedPack},
    {"structural", KLV::isStructuralMetadataSet},
    {"descriptive", KLV::isDescriptiveMetadataSet},
    {"metadata", KLV::isMetadataSet},
    {"index", KLV::isIndexTableKlvSegment},
    {"fill", KLV::isFillItem},
    {"essence", KLV::isEssence},
};

std::string kindsOf(KLV::Key const & key)
{
    std::string kinds;
    for (auto const & [name, holds] : PREDICATES)
        if (holds(key))
            kinds += (kinds.empty() ? "" : ", ") + std::string(name);
    return kinds;
}

std::pair<char const *, char const *> const CASES[] = {
    // A preface, then each byte that makes it one.
    {"06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 2F 00", "local set, MXF set, structural, metadata"},
    {"06 0E 2B 34 02 53 01 02 0D 01 01 01 01 01 2F 00", "local set, MXF set"},
    {"06 0E 2B 34 02 13 01 01 0D 01 01 01 01 01 2F 00", "local set"},
    {"06 0E 2B 34 02 D3 01 01 0D 01 01 01 01 01 2F 00", ""},
    {"06 0E 2B 34 01 53 01 01 0D 01 01 01 01 01 2F 00", ""},

    // Sets of a descriptive scheme, whatever they code tags and lengths with.
    {"06 0E 2B 34 02 53 01 01 0D 01 04 01 01 01 01 00", "local set, MXF set, descriptive, metadata"},
    {"06 0E 2B 34 02 7B 01 01 0D 01 04 01 09 09 09 09", "local set, descriptive, metadata"},
    {"06 0E 2B 34 02 05 01 01 0D 01 04 01 01 01 01 00", "pack"},

    // A header partition and an index table segment.
    {"06 0E 2B 34 02 05 01 01 0D 01 02 01 01 02 04 00", "pack"},
    {"06 0E 2B 34 02 53 01 01 0D 01 02 01 01 10 01 00", "local set, MXF set, index"},
    {"06 0E 2B 34 02 53 01 01 0D 01 02 01 01 10 01 01", "local set, MXF set"},

    // Fill of any version.
    {"06 0E 2B 34 01 01 01 01 03 01 02 10 01 00 00 00", "fill"},
    {"06 0E 2B 34 01 01 01 FF 03 01 02 10 01 00 00 00", "fill"},
    {"06 0E 2B 34 01 01 02 01 03 01 02 10 01 00 00 00", ""},
    {"06 0E 2B 34 01 01 01 01 03 01 02 10 01 00 00 01", ""},

    // A picture element, a set and a pack of a system item.
    {"06 0E 2B 34 01 02 01 01 0D 01 03 01 15 01 05 01", "essence"},
    {"06 0E 2B 34 01 02 01 02 0D 01 03 01 15 01 05 01", ""},
    {"06 0E 2B 34 02 43 01 01 0D 01 03 01 04 02 01 00", "local set, essence"},
    {"06 0E 2B 34 02 05 01 01 0D 01 03 01 04 01 01 00", "pack, essence"},
    {"06 0E 2B 34 02 05 01 01 0D 01 03 02 04 01 01 00", "pack"},
};

}

TEST(Key, TellsWhatItIsTheKeyOf)
{
    for (auto const & [bytes, kinds] : CASES)
        EXPECT_EQ(kindsOf(KLV::Key(hex(bytes).data())), kinds) << bytes;
}

TEST(UniversalLabel, TellsTheSameOfItsKey)
{
    for (auto const & [bytes, kinds] : CASES)
    {
        KLV::Key const key(hex(bytes).data());
        EXPECT_EQ(Types::isFixedPack(key), KLV::isFixedPack(key)) << bytes;
        EXPECT_EQ(Types::isMetadataSet(key), KLV::isMetadataSet(key)) << bytes;
        EXPECT_EQ(Types::isIndexTableKlvSegment(key), KLV::isIndexTableKlvSegment(key)) << bytes;
        EXPECT_EQ(Types::isFillItem(key), KLV::isFillItem(key)) << bytes;
        EXPECT_EQ(Types::isEssence(key), KLV::isEssence(key)) << bytes;
        // The one that differs: with labels any local set will do.
        EXPECT_EQ(Types::isMXFDefaultLocalSet(key), KLV::isLocalSet(key)) << bytes;
    }
}

TEST(Key, TellsHowALocalSetIsCoded)
{
    std::tuple<unsigned char, int, int> const CODINGS[] = {
        {0x03, 1, 0}, {0x0B, 1, 0}, {0x33, 2, 1}, {0x53, 2, 2}, {0x7B, 4, 4}, {0x05, 0, 0}, {0xD3, 0, 0},
    };

    KLV::Key key(hex("06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 2F 00").data());
    for (auto const & [designator, tagLength, lengthLength] : CODINGS)
    {
        key[5] = designator;
        EXPECT_EQ(key.localTagFieldLength(), tagLength) << int(designator);
        EXPECT_EQ(key.lengthFieldLength(), lengthLength) << int(designator);
    }
}

TEST(FillItemKey, BearsTheVersionThatWasSet)
{
    KLV::Key expected(hex("06 0E 2B 34 01 01 01 01 03 01 02 10 01 00 00 00").data());
    EXPECT_TRUE(KLV::fillItemKey() == expected);

    KLV::fillItemKey(2);
    expected[7] = 2;
    EXPECT_TRUE(KLV::fillItemKey() == expected);
    KLV::fillItemKey(1);
}

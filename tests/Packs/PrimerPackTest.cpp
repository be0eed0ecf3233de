#include "Packs/PrimerPack.h"

#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/Failure.h"

namespace Vantry { namespace Packs { namespace {

using namespace Tests;
using Types::LocalTag;
using Types::UniversalLabel;

Bytes const KEY = hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 05 01 00");

LocalTag tag(std::string const & text)
{
    return LocalTag(hex(text).data());
}

// A label that differs from others in its last byte.
Bytes labelBytes(unsigned char last)
{
    Bytes bytes = hex("06 0E 2B 34 01 01 01 02 05 20 07 01 01 00 00 00");
    bytes.back() = last;
    return bytes;
}

UniversalLabel label(unsigned char last)
{
    return UniversalLabel(labelBytes(last).data());
}

TEST(PrimerPack, IsWrittenInTheOrderOfTags)
{
    PrimerPack primer;
    EXPECT_EQ(serialized(primer), KEY + hex("83 00 00 08  00 00 00 00 00 00 00 12"));

    primer.add(tag("80 01"), label(1));
    primer.add(tag("3C 0A"), label(2));
    primer.add(tag("3C 01"), label(3));
    Bytes const entries = hex("3C 01") + labelBytes(3) + hex("3C 0A") + labelBytes(2) + hex("80 01") + labelBytes(1);
    Bytes const value = hex("00 00 00 03 00 00 00 12") + entries;
    EXPECT_EQ(serialized(primer), KEY + hex("83 00 00 3E") + value);
    EXPECT_EQ(primer.serializedSize(), 82u);
    EXPECT_EQ(primer.at(1).first, tag("3C 0A"));
    EXPECT_EQ(primer.at(1).second, label(2));
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to access an element beyond the end of the data", primer.at(3));
}

TEST(PrimerPack, IsReadWithWhateverLengthFieldAndEntrySize)
{
    Bytes const entries = hex("80 01") + labelBytes(1) + hex("3C 0A") + labelBytes(2);
    BytesPacket packet(KEY + hex("87 00 00 00 00 00 00 2C  00 00 00 02 00 00 00 14") + entries);
    PrimerPack primer(*packet);
    EXPECT_EQ(primer.count(), 2u);
    EXPECT_EQ(*primer.find(tag("80 01")), label(1));
    EXPECT_EQ(*primer.find(label(2)), tag("3C 0A"));
    EXPECT_EQ(primer.berLength(), 8);
    EXPECT_EQ(primer.serializedSize(), 16u + 8 + 44);
}

TEST(PrimerPack, SetsConflictsAside)
{
    PrimerPack primer;
    primer.add(tag("80 01"), label(1));
    primer.add(tag("80 01"), label(1));
    EXPECT_EQ(primer.count(), 1u);
    EXPECT_EQ(primer.countDuplicates(), 1u);

    primer.add(tag("80 01"), label(2)); // the tag keeps its label
    EXPECT_EQ(*primer.find(tag("80 01")), label(1));
    EXPECT_EQ(primer.find(label(2)), nullptr);

    primer.add(tag("80 02"), label(1)); // the label is found by its first tag
    EXPECT_EQ(primer.count(), 2u);
    EXPECT_EQ(*primer.find(tag("80 02")), label(1));
    EXPECT_EQ(*primer.find(label(1)), tag("80 01"));
    EXPECT_EQ(primer.countDuplicates(), 3u);
    EXPECT_EQ(primer.atDuplicates(1).second, label(2));
    EXPECT_EQ(primer.atDuplicates(2).first, tag("80 02"));
    EXPECT_EQ(serialized(primer),
              KEY + hex("83 00 00 2C  00 00 00 02 00 00 00 12  80 01") + labelBytes(1) + hex("80 02") + labelBytes(1));
    EXPECT_TRUE(primer.remove(label(1)));
    EXPECT_EQ(primer.find(tag("80 01")), nullptr);
    EXPECT_EQ(*primer.find(tag("80 02")), label(1));
}

TEST(PrimerPack, RefusesOtherKeysAndCountsWithoutEntries)
{
    Bytes otherKey = KEY;
    otherKey[15] = 1;
    BytesPacket other(otherKey + hex("08  00 00 00 00 00 00 00 12"));
    EXPECT_FAILURE(InvalidKey, "Trying to create a Primer from a KLV with a invalid primerPack Key.",
                   PrimerPack(*other));

    BytesPacket hostileLength(KEY + hex("88 7F FF FF FF FF FF FF FF  FF FF FF FF 00 00 00 12") + repeated(100, 1));
    EXPECT_FAILURE(InvalidLength, "Invalid data size in Value", PrimerPack(*hostileLength));
}

}}}

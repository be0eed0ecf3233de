#include "Packs/RandomIndexPack.h"

#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/Failure.h"

#include <gmock/gmock.h>

namespace Vantry { namespace Packs { namespace {

using testing::ElementsAre;
using namespace Tests;

Bytes const KEY = hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 11 01 00");

TEST(RandomIndexPack, IsWrittenByAscendingOffset)
{
    RandomIndexPack pack;
    EXPECT_EQ(serialized(pack), KEY + hex("83 00 00 04  00 00 00 18"));

    pack.add(0, 0x123456789ABC);
    pack.add(1, 1000);
    pack.add(1, 0);
    EXPECT_EQ(pack.size(), 3u);
    EXPECT_EQ(pack.serializedSize(), 60u);
    Bytes const entries = hex("00 00 00 01  00 00 00 00 00 00 00 00"
                              "00 00 00 01  00 00 00 00 00 00 03 E8"
                              "00 00 00 00  00 00 12 34 56 78 9A BC");
    EXPECT_EQ(serialized(pack), KEY + hex("83 00 00 28") + entries + hex("00 00 00 3C"));
}

TEST(RandomIndexPack, HasOneEntryForAnOffsetAndAnyForASID)
{
    RandomIndexPack pack;
    pack.add(1, 2000);
    pack.add(1, 1000);
    pack.add(2, 1000);
    pack.add(1, 0);
    EXPECT_THAT(pack.find(1), ElementsAre(0u, 1000u, 2000u));
    EXPECT_FAILURE(NotFound, "BodySid not found: 2", pack.find(2));
    EXPECT_EQ(pack.offsetIndexedMap().at(1000), 1u);
    EXPECT_EQ(pack.sidIndexedMap().count(1), 3u);
    EXPECT_EQ(pack.sidIndexedMap().count(2), 0u);
}

TEST(RandomIndexPack, IsReadUnderAnyVersionOfItsKeyWithoutALookAtItsLength)
{
    Bytes const value = hex("00 00 00 02  00 00 00 00 00 00 03 E8"
                            "00 00 00 01  00 00 00 00 00 00 00 00"
                            "00 00 00 03  00 00 00 00 00 00 03 E8"
                            "FF FF FF FF");
    Bytes otherKey = KEY;
    otherKey[14] = 9;
    BytesPacket packet(otherKey + hex("82 00 28") + value);
    EXPECT_FALSE(isRandomIndexPack((*packet).key()));

    RandomIndexPack const pack(*packet);
    EXPECT_EQ(pack.size(), 2u);
    EXPECT_EQ(pack.berLength(), 3);
    EXPECT_EQ(serialized(pack), KEY + hex("82 00 1C") +
                                    hex("00 00 00 01  00 00 00 00 00 00 00 00"
                                        "00 00 00 02  00 00 00 00 00 00 03 E8"
                                        "00 00 00 2F"));
}

TEST(RandomIndexPack, RefusesOtherKeysAndCutValues)
{
    Bytes otherKey = KEY;
    otherKey[13] = 5;
    BytesPacket other(otherKey + hex("04  00 00 00 18"));
    EXPECT_FAILURE(InvalidKey, "Trying to create a RIP from a KLV with a invalid RIP Key.", RandomIndexPack(*other));

    BytesPacket cutOff(KEY + hex("03  00 00 18"));
    EXPECT_FAILURE(InvalidLength, "Not enough data to read Pack", RandomIndexPack(*cutOff));
    BytesPacket oddBytes(KEY + hex("12") + repeated(18, 0));
    EXPECT_FAILURE(InvalidLength, "Invalid data size in Value", RandomIndexPack(*oddBytes));
}

}}}

#include "KLV/Reader.h"

#include "support/Failure.h"
#include "support/ForEachReadSize.h"

#include <thread>

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

Bytes const KEY = hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 15 01 05 01");
Bytes const FILL_KEY = hex("06 0E 2B 34 01 01 01 01 03 01 02 10 01 00 00 00");
Bytes const PARTITION_KEY = hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 02 04 00");

Bytes bytesOf(KLV::Key const & key)
{
    return Bytes(key.rawBuffer(), key.rawBuffer() + key.size());
}

}

TEST(Reader, WalksFromPacketToPacket)
{
    Bytes const stream = repeated(3, 0x06) + PARTITION_KEY + hex("03 AA BB CC") + FILL_KEY + hex("83 00 00 02 00 00") +
                         KEY + hex("88 00 00 00 00 00 00 00 00");

    forEachReadSize(stream,
                    [](BytesSource & source)
                    {
                        KLV::Reader reader(source);
                        UInt64 skipped = 99;
                        {
                            auto const packet = reader.nextKLV(skipped, 3);
                            EXPECT_EQ(skipped, 3u);
                            EXPECT_EQ(bytesOf(packet->key()), PARTITION_KEY);
                            EXPECT_EQ(packet->keyAbsoluteOffset(), 3u);
                            EXPECT_EQ(packet->berLength(), 1);
                            EXPECT_EQ(packet->length(), 3u);
                            unsigned char byte = 0;
                            packet->value().readValue(&byte, 1);
                            EXPECT_EQ(byte, 0xAA);
                        }
                        {
                            auto const fill = reader.nextKLV(skipped, 0);
                            EXPECT_EQ(skipped, 0u);
                            EXPECT_EQ(fill->berLength(), 4);
                            EXPECT_EQ(fill->keyAbsoluteOffset(), 23u);
                        }
                        auto const empty = reader.nextKLV(skipped, 0);
                        EXPECT_EQ(empty->berLength(), 9);
                        EXPECT_TRUE(empty->value().endOfStream());
                        EXPECT_FAILURE(NotEnoughData, "Not enough data", reader.nextKLV(skipped, 0));
                        EXPECT_EQ(source.bytesRead(), 3 + 16 + 1 + 1 + 16 + 4 + 16 + 9u)
                            << "values that nobody wants are not read";
                    });
}

TEST(Reader, SkipsNoMoreThanItMay)
{
    Bytes const stream = repeated(20, 0x34) + KEY + hex("00");
    forEachReadSize(
        stream,
        [](BytesSource & source)
        {
            KLV::Reader reader(source);
            UInt64 skipped = 0;

            EXPECT_FAILURE(KeyNotFound,
                           "Exceeded maximum bytes to skip before finding a key. Started to search at 0x2 Skipped 0x12 "
                           "current position: 0x19",
                           (source.seek(2), reader.nextKLV(skipped, 17)));
            EXPECT_EQ(source.absoluteOffset(), 25u) << "the source stays where the search stopped";

            source.seek(2);
            reader.nextKLV(skipped, 18);
            EXPECT_EQ(skipped, 18u);
        });
}

TEST(Reader, TellsWhatIsNoPacket)
{
    Bytes const CUT_OFF[] = {
        {}, hex("06 0E 2B 34"), hex("00 06 0E 2B 34"), KEY.first(15), KEY, KEY + hex("83 00 00"),
    };
    for (Bytes const & stream : CUT_OFF)
        forEachReadSize(stream,
                        [](BytesSource & source)
                        {
                            UInt64 skipped = 0;
                            EXPECT_FAILURE(NotEnoughData, "Not enough data", KLV::Reader(source).nextKLV(skipped, 100));
                            EXPECT_TRUE(source.endOfStream());
                        });

    UInt64 skipped = 0;
    BytesSource indefinite(KEY + hex("80 00 00"));
    EXPECT_FAILURE(InvalidFormat, "Invalid BER size: 0x80", KLV::Reader(indefinite).nextKLV(skipped, 0));

    BytesSource tooLong(KEY + hex("89 00 00 00 00 00 00 00 00 01 00"));
    EXPECT_FAILURE(InvalidFormat,
                   "berLength <= 9: Invalid BER length. Please refer to S377M, heading 5.3.4 for more details.",
                   KLV::Reader(tooLong).nextKLV(skipped, 0));
}

TEST(Reader, LooksAtTheCategoryOfAPacketKey)
{
    Bytes otherKey = KEY;
    for (otherKey[4] = 0; otherKey[4] < 9; ++otherKey[4])
    {
        BytesSource source(otherKey + KEY);
        KLV::Reader reader(source);
        UInt64 skipped = 0;
        reader.peekNextKey(skipped, 16);
        EXPECT_EQ(skipped, otherKey[4] < 4 || otherKey[4] == 5 ? 0u : 16u) << int(otherKey[4]);
        source.seek(0);
        EXPECT_EQ(bytesOf(reader.peekNextKey(skipped, KLV::Reader::PEEK_SMPTE_KEY, 0)), otherKey);
    }
}

TEST(Reader, TakesAPeekedKeyOnce)
{
    forEachReadSize(hex("00") + KEY + hex("01 AA") + FILL_KEY + hex("00"),
                    [](BytesSource & source)
                    {
                        KLV::Reader reader(source);
                        UInt64 skipped = 0;

                        EXPECT_EQ(bytesOf(reader.peekNextKey(skipped, 1)), KEY);
                        EXPECT_EQ(skipped, 1u);
                        EXPECT_EQ(bytesOf(reader.peekNextKey(skipped, 0)), KEY);
                        EXPECT_EQ(skipped, 0u);
                        EXPECT_EQ(source.absoluteOffset(), 17u);
                        EXPECT_EQ(reader.nextKLV(skipped, 0)->keyAbsoluteOffset(), 1u);
                        EXPECT_EQ(bytesOf(reader.nextKLV(skipped, 0)->key()), FILL_KEY);

                        source.seek(1);
                        reader.peekNextKey(skipped, 0);
                        source.seek(19);
                        EXPECT_EQ(bytesOf(reader.nextKLV(skipped, 0)->key()), FILL_KEY)
                            << "the source was moved: a stale key is dropped";
                    });
}

TEST(Reader, KeepsAPeekedKeyForEachThread)
{
    BytesSource source(KEY + hex("00") + FILL_KEY + hex("00"));
    KLV::Reader reader(source);
    UInt64 skipped = 0;
    EXPECT_EQ(bytesOf(reader.peekNextKey(skipped, 0)), KEY);
    std::thread(
        [&]
        {
            UInt64 others = 0;
            source.seek(16);
            EXPECT_EQ(bytesOf(reader.peekNextKey(others, 1)), FILL_KEY) << "the other thread's key is not this one's";
            EXPECT_EQ(reader.nextKLV(others, 0)->keyAbsoluteOffset(), 17u);
        })
        .join();

    source.seek(16);
    EXPECT_EQ(reader.nextKLV(skipped, 0)->keyAbsoluteOffset(), 0u);
}

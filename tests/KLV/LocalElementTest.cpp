#include "KLV/LocalElement.h"

#include "support/Failure.h"
#include "support/ForEachReadSize.h"

using namespace Vantry;
using namespace Vantry::Tests;

TEST(LocalElement, WalksThroughASet)
{
    struct Expected
    {
        char const * tag;
        UInt16 length;
    };
    Bytes const bytes = hex("3C 0A 00 04 01 02 03 04  80 00 00 00  01 01 01 01") + repeated(0x101, 5) + hex("FF FF");

    forEachReadSize(bytes,
                    [&](BytesSource & source)
                    {
                        KLV::Value set(source, bytes.size() - 2);
                        for (Expected const & expected : {Expected{"3C 0A", 4}, {"80 00", 0}, {"01 01", 0x101}})
                        {
                            KLV::LocalElement element(set);
                            EXPECT_TRUE(element.tag() == Types::LocalTag(hex(expected.tag).data()));
                            EXPECT_EQ(element.length(), expected.length);
                            EXPECT_EQ(element.value().remaining(), expected.length);
                            element.value().skip(1);
                        }
                        EXPECT_TRUE(set.endOfStream());
                        EXPECT_EQ(source.absoluteOffset(), bytes.size() - 2);
                    });
}

TEST(LocalElement, StaysInsideItsSet)
{
    BytesSource source(hex("3C 0A FF FF 01 02 03 04"));
    KLV::Value set(source, 6);
    {
        KLV::LocalElement element(set);
        EXPECT_EQ(element.length(), 0xFFFF);
        unsigned char bytes[4];
        EXPECT_EQ(element.value().read(bytes, 4), 2u);
    }
    EXPECT_EQ(source.absoluteOffset(), 6u);

    for (char const * cut : {"", "3C", "3C 0A", "3C 0A 00"})
    {
        BytesSource ends(hex(cut));
        KLV::Value value(ends, 8);
        EXPECT_FAILURE(InvalidLength, "Invalid data size in Value", KLV::LocalElement(value));
    }
}

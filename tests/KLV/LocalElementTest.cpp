#include "KLV/LocalElement.h"

#include "Exceptions/InvalidLength.h"
#include "support/Bytes.h"
#include "support/BytesSource.h"
#include "support/Failure.h"
#include "support/ForEachReadSize.h"

#include <gtest/gtest.h>

using namespace Vantry;
using namespace Vantry::Tests;

TEST(LocalElement, WalksThroughASet)
{
    forEachReadSize(hex("3C 0A 00 04 01 02 03 04"
                        "80 00 00 00"
                        "01 01 00 02 05 06"
                        "FF FF"),
                    [](BytesSource & source)
                    {
                        KLV::Value set(source, 18);
                        {
                            KLV::LocalElement element(set);
                            EXPECT_TRUE(element.tag() == Types::LocalTag(hex("3C 0A").data()));
                            EXPECT_EQ(element.length(), 4);
                            unsigned char first = 0;
                            element.value().readValue(&first, 1);
                            EXPECT_EQ(first, 1);
                        }
                        {
                            KLV::LocalElement const empty(set);
                            EXPECT_TRUE(empty.tag() == Types::LocalTag(hex("80 00").data()));
                            EXPECT_TRUE(empty.value().endOfStream());
                        }
                        {
                            KLV::LocalElement const unread(set);
                            EXPECT_EQ(unread.length(), 2);
                        }
                        EXPECT_TRUE(set.endOfStream());
                        EXPECT_EQ(source.absoluteOffset(), 18u);
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

#include "IndexTables/IndexTableSegment.h"

#include "IndexTables/DeltaEntryArray.h"
#include "IndexTables/IndexEntryArray.h"
#include "IndexTables/IndexTableSegmentListener.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/Failure.h"
#include "support/Values.h"

namespace Vantry { namespace IndexTables { namespace {

using Tests::Bytes;
using Tests::BytesPacket;
using Tests::hex;
using Tests::lengthFailureOf;
using Tests::serialized;

Bytes const KEY = hex("06 0E 2B 34 02 53 01 01 0D 01 02 01 01 10 01 00");

// A segment's packet with this value.
Bytes packetOf(Bytes const & value, Bytes const & key = KEY)
{
    return key + hex("82") +
           Bytes{static_cast<unsigned char>(value.size() >> 8), static_cast<unsigned char>(value.size())} + value;
}

Bytes const ALWAYS_WRITTEN = hex("3C 0A 00 10  00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F"
                                 "3F 0B 00 08  00 00 00 19 00 00 00 01"
                                 "3F 0C 00 08  00 00 00 00 00 00 00 64"
                                 "3F 0D 00 08  00 00 00 00 00 00 00 02");
Bytes const BODY_SID = hex("3F 07 00 04  00 00 00 01");
Bytes const COUNTS = hex("3F 08 00 01 01  3F 0E 00 01 00");
Bytes const DELTAS = hex("3F 09 00 0E  00 00 00 01 00 00 00 06  FF 00 00 00 00 00");
Bytes const ENTRIES = hex("3F 0A 00 17  00 00 00 01 00 00 00 0F  00 00 80 00 00 00 00 00 00 00 07 00 00 00 09");
Bytes const WHOLE =
    ALWAYS_WRITTEN + hex("3F 05 00 04  00 00 00 00  3F 06 00 04  00 00 00 02") + BODY_SID + COUNTS + DELTAS + ENTRIES;

TEST(IndexTableSegment, IsWrittenAsItWasRead)
{
    BytesPacket packet(packetOf(WHOLE));
    IndexTableSegment segment(*packet, nullptr);
    EXPECT_EQ(serialized(segment), packetOf(WHOLE));
    EXPECT_EQ(segment.serializedSize(), packetOf(WHOLE).size());
    EXPECT_EQ(segment.indexEditRate().numerator(), 25);
    EXPECT_EQ(segment.indexStartPosition().value(), 100);
    EXPECT_EQ(segment.indexDuration().value(), 2);
    EXPECT_EQ(segment.editUnitByteCount()->value(), 0u);
    EXPECT_EQ(segment.indexSID()->value(), 2u);
    EXPECT_EQ(segment.bodySID().value(), 1u);
    EXPECT_EQ(segment.sliceCount()->value(), 1);
    EXPECT_EQ(segment.posTableCount()->value(), 0);
    EXPECT_EQ(segment.deltaEntry(0).posTableIndex(), -1);
    EXPECT_EQ(segment.indexEntry(0).sliceOffset(0), 9u);
    EXPECT_EQ(segment.instanceUID().rawBuffer()[15], 15);

    segment.resetEditUnitByteCount();
    segment.resetIndexSID();
    segment.resetDeltaEntryArray();
    segment.resetIndexEntryArray();
    EXPECT_EQ(serialized(segment), packetOf(ALWAYS_WRITTEN + BODY_SID + COUNTS));
}

TEST(IndexTableSegment, HasNothingOptionalAtFirst)
{
    IndexTableSegment segment(4), other(4);
    EXPECT_EQ(segment.serializedSize(), 16u + 4 + 64);
    Bytes const written = serialized(segment);
    EXPECT_EQ(written.size(), 84u);
    EXPECT_EQ(Bytes(written.begin() + 40, written.end()),
              hex("3F 0B 00 08  00 00 00 00 00 00 00 01  3F 0C 00 08  00 00 00 00 00 00 00 00"
                  "3F 0D 00 08  00 00 00 00 00 00 00 00  3F 07 00 04  00 00 00 00"));
    EXPECT_NE(segment.instanceUID(), other.instanceUID());
    EXPECT_TRUE(!segment.editUnitByteCount() && !segment.indexSID() && !segment.sliceCount() &&
                !segment.posTableCount() && !segment.deltaEntryArray() && !segment.indexEntryArray());

    BytesPacket nothing(packetOf({}));
    EXPECT_EQ(IndexTableSegment(*nothing, nullptr).serializedSize(), 16u + 3 + 64);
    EXPECT_FAILURE(InvalidFormat, "Invalid BER size", serialized(IndexTableSegment(10)));
}

struct Listener : IndexTableSegmentListener
{
    void elementMet(Types::LocalTag const & tag, KLV::Value & value) override
    {
        met += Bytes(tag.rawBuffer(), tag.rawBuffer() + 2);
        met.push_back(static_cast<unsigned char>(value.totalLength()));
    }

    Bytes met;
};

TEST(IndexTableSegment, TakesElementsInAnyOrderAndKeepsUnknownOnes)
{
    Listener listener;
    Bytes const older = hex("06 0E 2B 34 02 53 01 01 0D 01 02 01 01 10 00 00");
    BytesPacket packet(packetOf(BODY_SID + hex("3F 07 00 04  00 00 00 05  80 01 00 03 AA BB CC  80 01 00 00"), older));
    IndexTableSegment const segment(*packet, &listener);
    EXPECT_EQ(segment.bodySID().value(), 5u);
    ASSERT_EQ(segment.unknownElements().size(), 2u);
    EXPECT_EQ(segment.unknownElements()[0].localTag, Types::LocalTag(hex("80 01").data()));
    EXPECT_EQ(serialized(*segment.unknownElements()[0].value), hex("AA BB CC"));
    EXPECT_EQ(segment.unknownElements()[1].value->value().size(), 0u);
    EXPECT_EQ(listener.met, hex("3F 07 04  3F 07 04  80 01 03  80 01 00"));
    EXPECT_EQ(serialized(segment).first(16), KEY);
    EXPECT_EQ(segment.serializedSize(), 16u + 3 + 64);
}

TEST(IndexTableSegment, IsReadOnlyWhenItsLengthsAgree)
{
    std::string const tooShort = "Invalid data size in Value in the IndexTable Segment";
    std::string const tooLong = "Invalid data size in Local Value. Value still contains data to be read.";
    std::tuple<char const *, Bytes, Tests::LengthFailure> const cases[] = {
        {"half a head", hex("3F 07 00"), {tooShort, hex("3F 07 00")}},
        {"a short number", hex("3F 07 00 03  01 02 03"), {tooShort, hex("3F 07 00 03  01 02 03")}},
        {"a number cut off", hex("3F 07 00 04  01 02"), {tooShort, hex("3F 07 00 04  01 02")}},
        {"a long number", hex("3F 08 00 03  01 02 03"), {tooLong, hex("02 03")}},
        {"an unknown element cut off", hex("80 01 FF FF  01 02"), {tooShort, hex("80 01 FF FF  01 02")}},
        {"bytes behind an array", hex("3F 09 00 0A  00 00 00 00 00 00 00 06  01 02"), {tooLong, hex("01 02")}},
        {"an array cut off",
         DELTAS.first(17),
         {"Invalid data size in Value to create an element in the Index Table collections.",
          hex("00 00 00 01 00 00 00 06")}},
        {"entries ahead of their counts",
         ENTRIES + COUNTS,
         {"expectedArrayLength == calculatedArrayLength: Mismatch between Index Entry Array size and size based on "
          "SliceCount, PosTableCount and number of entries (NIE/NDE).",
          {}}},
    };
    for (auto const & [name, value, failure] : cases)
    {
        SCOPED_TRACE(name);
        BytesPacket packet(packetOf(value));
        EXPECT_EQ(lengthFailureOf([&] { IndexTableSegment(*packet, nullptr); }), failure);
    }

    BytesPacket source(KEY + hex("82 00 20  3F 07 00 04"));
    EXPECT_EQ(lengthFailureOf([&] { IndexTableSegment(*source, nullptr); }).message, tooShort);
}

TEST(IndexTableSegment, RefusesOtherKeys)
{
    Bytes key = KEY;
    key[13] = 0x11;
    BytesPacket other(packetOf({}, key));
    EXPECT_FAILURE(InvalidIndexSegment, "Trying to load a Index Segment with an invalid key",
                   IndexTableSegment(*other, nullptr));

    key = KEY;
    key[5] = 0x13;
    BytesPacket otherLengths(packetOf({}, key));
    EXPECT_FAILURE(InvalidIndexSegment,
                   "Invalid MXF Index Segment set (local tag should be 2 bytes and length field 2 bytes.)",
                   IndexTableSegment(*otherLengths, nullptr));
}

TEST(IndexTableSegment, GrowsAndShrinks)
{
    IndexTableSegment segment(4);
    IndexTableSegment const & constSegment = segment;
    IndexEntry entry(7);
    EXPECT_FAILURE(IndexOutOfBounds, "IndexTableSegment::deltaEntry IndexOutOfBounds", segment.deltaEntry(0));
    EXPECT_FAILURE(IndexOutOfBounds, "IndexTableSegment::indexEntry IndexOutOfBounds", constSegment.indexEntry(0));
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to remove element from empty deltaEntryArray.",
                   segment.removeDeltaEntry(0));
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to remove element from empty indexEntryArray.",
                   segment.removeIndexEntry(0));

    segment.sliceCount(1);
    EXPECT_FAILURE(InvalidElement,
                   "Error: NSL in segment has value: 1 while IndexEntry has NSL: 0\n"
                   "Error: NPE in segment has value: 0 while IndexEntry has NPE: 0",
                   segment.addIndexEntry(0, entry));
    entry.addSliceOffset(0, 5);
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to insert an element beyond the end of the data",
                   segment.addIndexEntry(1, entry));
    EXPECT_EQ(segment.indexEntryArray(), nullptr);

    segment.addIndexEntry(0, entry);
    segment.addIndexEntry(0, entry);
    segment.indexEntry(0).streamOffset(1);
    segment.removeIndexEntry(1);
    EXPECT_EQ(constSegment.indexEntry(0).streamOffset(), 1u);
    EXPECT_EQ(segment.indexEntryCount(), 1u);
    EXPECT_FAILURE(InvalidElement, "TRying to insert an invalid element", segment.addIndexEntry(0, IndexEntry(1)));

    segment.addDeltaEntry(0, DeltaEntry(0, 0, 4));
    segment.addDeltaEntry(0, DeltaEntry(0, 0, 0));
    EXPECT_EQ(constSegment.deltaEntry(1).elementDelta(), 4u);
    segment.removeDeltaEntry(0);
    EXPECT_EQ(segment.deltaEntryCount(), 1u);

    EXPECT_FAILURE(InvalidIndexSegment,
                   "IndexEntryArray still contains value. Please empty IndexEntryArray before setting sliceCount",
                   segment.sliceCount(0));
    EXPECT_FAILURE(InvalidIndexSegment,
                   "IndexEntryArray still contains value. Please empty IndexEntryArray before setting posTableCount",
                   segment.posTableCount(0));
    segment.resetIndexEntryArray();
    segment.sliceCount(0);
    EXPECT_EQ(segment.sliceCount()->value(), 0);
}

// The length field of an array has 16 bits; what there is is written.
TEST(IndexTableSegment, WritesLargeArraysWhole)
{
    IndexTableSegment segment(4);
    segment.addIndexEntry(0, IndexEntry(0));
    for (unsigned int i = 1; i < 6000; ++i)
        segment.indexEntryArray()->append(IndexEntry(i));
    Bytes const written = serialized(segment);
    EXPECT_EQ(written.size(), 84u + 4 + 8 + 66000);
    EXPECT_EQ(written.size(), segment.serializedSize());
    EXPECT_EQ(Bytes(written.begin() + 84, written.begin() + 92), hex("3F 0A 01 D8  00 00 17 70"));
}

}}}

// Index and delta entries, by themselves and in their arrays.

#include "IndexTables/DeltaEntryArray.h"
#include "IndexTables/IndexEntryArray.h"
#include "support/BytesSink.h"
#include "support/Failure.h"
#include "support/Values.h"

namespace Vantry { namespace IndexTables { namespace {

using Templates::Rational;
using Tests::Bytes;
using Tests::BytesSource;
using Tests::hex;
using Tests::lengthFailureOf;
using Tests::serialized;
using Tests::valueOf;

using Count = unsigned char;

TEST(IndexEntry, HoldsFlagsAndOffsets)
{
    Bytes const wire = hex("02 FD A5 01 02 03 04 05 06 07 08");
    IndexEntry entry(2, -3, true, false, true, false, 0x0102030405060708);
    entry.flags(static_cast<unsigned char>(entry.flags() | 5));
    EXPECT_EQ(serialized(entry), wire);
    EXPECT_EQ(serialized(valueOf<IndexEntry>(wire, Count(0), Count(0))), wire);
    EXPECT_EQ(serialized(IndexEntry(9)), hex("00 00 80 00 00 00 00 00 00 00 09"));

    entry.randomAccess(false);
    entry.sequenceHeader(true);
    entry.forwardPrediction(false);
    entry.backwardPrediction(true);
    EXPECT_EQ(entry.flags(), 0x55);
    EXPECT_TRUE(!entry.randomAccess() && entry.sequenceHeader() && !entry.forwardPrediction() &&
                entry.backwardPrediction());
}

// As many numbers as fit into the object, and more.
TEST(IndexEntry, HoldsSlicesAndPositions)
{
    IndexEntry entry(0);
    entry.addSliceOffset(0, 30);
    entry.addSliceOffset(0, 10);
    entry.addSliceOffset(1, 0xFFFFFFFF);
    entry.addPosTable(0, Rational<int>(-1, 2));
    entry.addPosTable(0, Rational<int>(3, 4));
    Bytes const wire = hex("00 00 80 00 00 00 00 00 00 00 00  00 00 00 0A FF FF FF FF 00 00 00 1E"
                           "00 00 00 03 00 00 00 04  FF FF FF FF 00 00 00 02");
    EXPECT_EQ(serialized(entry), wire);
    EXPECT_EQ(entry.serializedSize(), 39);
    EXPECT_EQ(serialized(valueOf<IndexEntry>(wire, Count(3), Count(2))), wire);
    EXPECT_EQ(entry.sliceOffset(2), 30u);
    EXPECT_EQ(entry.posTable(1), Rational<int>(-1, 2));

    IndexEntry const copy = entry;
    IndexEntry assigned(7);
    assigned = entry;
    for (Count count = 3; count > 0; --count)
        entry.removeSliceOffset(0);
    entry.removePosTable(0);
    EXPECT_EQ(serialized(entry), hex("00 00 80 00 00 00 00 00 00 00 00  FF FF FF FF 00 00 00 02"));
    entry.removePosTable(0);
    EXPECT_EQ(entry.posTableCount(), 0u);
    EXPECT_EQ(serialized(copy), wire);
    EXPECT_EQ(serialized(assigned), wire);

    char const * const beyond = "Trying to access a element beyond the end of data";
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to access a element beyond the end of data.", copy.sliceOffset(3));
    EXPECT_FAILURE(IndexOutOfBounds, beyond, copy.posTable(2));
    EXPECT_FAILURE(IndexOutOfBounds, beyond, entry.removeSliceOffset(0));
    EXPECT_FAILURE(IndexOutOfBounds, beyond, entry.removePosTable(0));
    EXPECT_FAILURE(IndexOutOfBounds, beyond, assigned.addSliceOffset(4, 0));
    EXPECT_FAILURE(IndexOutOfBounds, beyond, assigned.addPosTable(3, 0));
}

TEST(DeltaEntryArray, HoldsEntriesOfSixBytes)
{
    DeltaEntryArray array;
    array.append(DeltaEntry(0, 1, 2));
    array.insertAt(0, DeltaEntry(-1, 0, 0));
    array.insertAt(2, DeltaEntry(0, 1, 9));
    array.remove(2);
    Bytes const wire = hex("00 00 00 02 00 00 00 06  FF 00 00 00 00 00  00 01 00 00 00 02");
    EXPECT_EQ(serialized(array), wire);
    EXPECT_EQ(array.serializedSize(), 20u);

    DeltaEntryArray const empty(valueOf<DeltaEntryArray>(hex("00 00 00 00 00 00 00 09")));
    EXPECT_EQ(empty.size(), 0u);
    EXPECT_EQ(empty.elementSize(), 9u);

    char const * const beyond = "Trying to access a element beyond the end of data";
    EXPECT_FAILURE(IndexOutOfBounds, beyond, array.at(2));
    EXPECT_FAILURE(IndexOutOfBounds, beyond, empty.at(0));
    EXPECT_FAILURE(IndexOutOfBounds, beyond, array.remove(2));
    EXPECT_FAILURE(IndexOutOfBounds, beyond, array.insertAt(3, DeltaEntry(0, 0, 0)));
}

TEST(DeltaEntryArray, TakesOnlyEntriesOfItsSize)
{
    BytesSource source(hex("00 00 00 00 00 00 00 09"));
    KLV::Value value(source, 8);
    DeltaEntryArray array(value);
    EXPECT_FAILURE(InvalidElement, "Trying to append an invalid entry.", array.append(DeltaEntry(0, 0, 0)));
    EXPECT_FAILURE(InvalidElement, "Trying to append an invalid entry.", array.insertAt(9, DeltaEntry(0, 0, 0)));
}

TEST(IndexEntryArray, TakesOnlyEntriesOfItsSize)
{
    IndexEntryArray array(1, 0);
    IndexEntry entry(5);
    EXPECT_FAILURE(InvalidElement, "Trying to append an invalid element", array.append(entry));
    EXPECT_FAILURE(InvalidElement, "TRying to insert an invalid element", array.insertAt(9, entry));

    entry.addSliceOffset(0, 3);
    array.append(entry);
    entry.streamOffset(4);
    array.insertAt(0, entry);
    array.append(array.at(0)); // one of its own
    array.remove(1);
    EXPECT_EQ(serialized(array), hex("00 00 00 02 00 00 00 0F"
                                     "00 00 80 00 00 00 00 00 00 00 04  00 00 00 03"
                                     "00 00 80 00 00 00 00 00 00 00 04  00 00 00 03"));
    EXPECT_EQ(array.elementSize(), 15u);

    IndexEntryArray const & constArray = array;
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to access an element beyond the end of the data", array.at(2));
    EXPECT_FAILURE(IndexOutOfBounds, "IndexEntryArray::at() IndexOutOfBonds", constArray.at(2));
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to remove an element beyond the end of the data", array.remove(2));
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to insert an element beyond the end of the data",
                   array.insertAt(3, entry));
}

// An array of so many entries, without key frame offset, whose stream offsets
// count up.
Bytes entriesWithout(unsigned int count)
{
    IndexEntryArray array(0, 0);
    for (unsigned int i = 0; i < count; ++i)
        array.append(IndexEntry(0, 127, false, false, true, false, i));
    return serialized(array);
}

TEST(IndexEntryArray, MendsMissingKeyFrameOffsets)
{
    Bytes const wire = entriesWithout(7000); // more than are written at once
    BytesSource source(wire, 1000);
    KLV::Value value(source, wire.size());
    IndexEntryArray const array(value, 0, 0);
    ASSERT_EQ(array.size(), 7000u);
    EXPECT_EQ(array.at(0).keyFrameOffset(), 0);
    EXPECT_EQ(array.at(5).keyFrameOffset(), -5);
    EXPECT_EQ(array.at(200).keyFrameOffset(), 56);
    EXPECT_EQ(array.at(6999).streamOffset(), 6999u);

    Bytes const again = serialized(array);
    ASSERT_EQ(again.size(), wire.size());
    EXPECT_TRUE(std::equal(wire.end() - 8, wire.end(), again.end() - 8));
}

TEST(EntryArrays, AreReadOnlyWhenTheirNumbersAgree)
{
    std::string const noHead =
        "Invalid data size in the Index Table collection. Not enough data to read element entry size";
    std::string const tooMany =
        "Number of expected values differ from the size of the local KLV value field. Index Table Segment";
    std::string const different =
        "expectedArrayLength == calculatedArrayLength: Mismatch between Index Entry Array size and size based on "
        "SliceCount, PosTableCount and number of entries (NIE/NDE).";
    std::string const cutOff = "Invalid data size in Value to create an element in the Index Table collections.";
    Bytes const head = hex("00 00 00 02 00 00 00 0B");
    Bytes const two = head + Tests::repeated(22, 1);

    std::tuple<char const *, Bytes, UInt64, Count, Tests::LengthFailure> const cases[] = {
        {"nothing", {}, 0, 0, {noHead, {}}},
        {"half a head", head.first(7), 7, 0, {noHead, head.first(7)}},
        {"more entries than bytes", two, 29, 0, {tooMany, head}},
        {"2^64 bytes", hex("FF FF FF FF FF FF FF FF"), 8, 0, {tooMany, hex("FF FF FF FF FF FF FF FF")}},
        {"no slice offsets", two, 30, 1, {different, {}}},
        {"a source that ends", two.first(29), 30, 0, {cutOff, two.first(19)}},
    };
    for (auto const & [name, wire, claim, slices, failure] : cases)
    {
        SCOPED_TRACE(name);
        BytesSource source(wire);
        KLV::Value value(source, claim);
        EXPECT_EQ(lengthFailureOf([&, slices = slices] { IndexEntryArray(value, slices, 0); }), failure);
    }

    EXPECT_EQ(
        lengthFailureOf([] { valueOf<DeltaEntryArray>(hex("00 00 00 01 00 00 00 07") + Tests::counting(7)); }).message,
        "expectedArrayLength == calculatedArrayLength: Mismatch between Delta Entry Array size and size based "
        "on number of entries (NIE/NDE).");
}

// A count that the source doesn't bear out takes no memory.
TEST(EntryArrays, DontBelieveWhatTheSourceHasNot)
{
    BytesSource source(hex("FF FF FF FF 00 00 00 06  00 00 00 00 00 01"));
    KLV::Value value(source, UInt64(1) << 40);
    EXPECT_EQ(lengthFailureOf([&] { DeltaEntryArray array(value); }).bytes.size(), 14u);
}

}}}

#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/UInt16.h"
#include "Types/UInt8.h"
#include "Types/UniversalLabel.h"
#include "support/BytesSink.h"
#include "support/Failure.h"
#include "support/ForEachReadSize.h"
#include "support/Values.h"

namespace Vantry { namespace Tests {

namespace {

namespace Identifiers = Types::Identifiers;

template <class X, class Value>
Templates::auto_ptr<Types::SimpleDataType> made(Value value)
{
    return Templates::auto_ptr<Types::SimpleDataType>(new X(value));
}

Templates::auto_ptr<Types::SimpleDataType> number(unsigned short value)
{
    return made<Types::UInt16>(value);
}

Types::Array arrayOf(std::initializer_list<unsigned short> values)
{
    Types::Array array(2);
    for (unsigned short value : values)
        array.append(number(value));
    return array;
}

}

TEST(Collection, ReadsWhatItWrites)
{
    struct
    {
        char const * name;
        Bytes wire;
        unsigned size;
    } const CASES[] = {
        {"no elements", hex("00000000 00000010"), 0},
        {"three labels", hex("00000003 00000010") + counting(48), 3},
    };
    for (auto const & c : CASES)
        forEachReadSize(c.wire,
                        [&](DataIO::DataSource & source)
                        {
                            SCOPED_TRACE(c.name);
                            KLV::Value value(source, c.wire.size());
                            Types::Batch const batch(value, Identifiers::UL);
                            EXPECT_EQ(batch.size(), c.size);
                            EXPECT_EQ(batch.serializedSize(), c.wire.size());
                            EXPECT_EQ(serialized(batch), c.wire);
                            EXPECT_EQ(serialized(*batch.clone()), c.wire);
                        });
}

TEST(Collection, PassesOverWhatEntriesHaveBehindTheirElement)
{
    Bytes const entry = counting(16) + hex("AA BB CC DD");
    Bytes const read = hex("00000003 00000014") + entry + entry + entry;
    Bytes const cleared = counting(16) + repeated(4, 0);
    auto const batch = valueOf<Types::Batch>(read, Identifiers::UL);
    ASSERT_EQ(batch.size(), 3u);
    EXPECT_TRUE(dynamic_cast<Types::UniversalLabel const &>(batch.at(2)) == Types::UniversalLabel(entry.data()));
    EXPECT_EQ(serialized(batch), hex("00000003 00000014") + cleared + cleared + cleared);
}

TEST(Collection, CarriesAllBytesOfADamagedOne)
{
    struct
    {
        char const * message;
        Bytes bytes;
        UInt64 claim;
    } const CASES[] = {
        {"Invalid data size in collection. Not enough data to read number of elements", hex("00 00"), 2},
        {"Invalid data size in collection. Not enough data to read element entry size", hex("00000001 0000"), 6},
        {"Incoherent size in collection. Element size is zero and element count is not zero",
         hex("00000002 00000000 AABBCC"), 11},
        {"Invalid data size in collection. Not enough data to read 4294967295 elements of size 4294967295",
         hex("FFFFFFFF FFFFFFFF") + counting(5), UInt64(1) << 62},
        {"Invalid data size in Value", hex("00000002 00000010") + counting(31), 40},
    };
    for (auto const & c : CASES)
        forEachReadSize(c.bytes,
                        [&](DataIO::DataSource & source)
                        {
                            KLV::Value value(source, c.claim);
                            EXPECT_EQ(lengthFailureOf([&] { Types::Array array(value, Identifiers::UL); }),
                                      (LengthFailure{c.message, c.bytes}));
                        });
    EXPECT_FAILURE(NoFactory, "No Factory for type",
                   valueOf<Types::Array>(hex("00000001 00000001 AA"), Identifiers::Key));
}

TEST(Collection, HoldsElementsOfOneSize)
{
    Types::Batch open(0);
    open.append(number(1));
    EXPECT_FAILURE(InvalidElement, "Appending an invalid element", open.append(made<Types::UInt8>(1)));
    EXPECT_EQ(serialized(open), hex("00000001 00000002 0001"));
}

TEST(Collection, InsertsAndRemoves)
{
    Types::Array array(2);
    array.insertAt(0, number(2));
    array.insertAt(0, number(1));
    array.insertAt(2, number(3));
    EXPECT_EQ(serialized(array), hex("00000003 00000002 0001 0002 0003"));
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to insert an element past the end of the data",
                   array.insertAt(4, number(4)));
    EXPECT_FAILURE(InvalidElement, "Trying to insert an invalid element", array.insertAt(4, made<Types::UInt8>(4)));

    array.remove(1);
    EXPECT_FAILURE(IndexOutOfBounds, "Trying to remove an element beyond the end of data", array.remove(2));
    EXPECT_FAILURE(IndexOutOfBounds, "Exceptions::IndexOutOfBounds", array.at(2));
    dynamic_cast<Types::UInt16 &>(array.at(1)) = Types::UInt16(9);
    EXPECT_EQ(serialized(array), hex("00000002 00000002 0001 0009"));
}

TEST(Collection, TakesCopiesOfAnothersElements)
{
    Types::Array const one = arrayOf({1});
    Types::Array two = arrayOf({2, 3});
    Types::Array const copy(two);
    EXPECT_EQ(serialized(one = two), serialized(copy)) << "an array is a handle, which const doesn't keep from it";
    two.remove(0);
    EXPECT_EQ(serialized(one), serialized(copy));

    Types::Array const & itself = two;
    two = itself;
    EXPECT_EQ(serialized(two), hex("00000001 00000002 0003"));
    EXPECT_FAILURE(InvalidElement, "Appending an invalid element", Types::Array(16) = two);
    Types::Array open(0);
    open = two;
    EXPECT_EQ(serialized(open), serialized(two));
    open = Types::Array(16);
    EXPECT_EQ(serialized(open), hex("00000000 00000002")) << "the size stays";
}

}}

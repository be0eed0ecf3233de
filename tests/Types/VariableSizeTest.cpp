#include "Types/DataStream.h"
#include "Types/DataValue.h"
#include "Types/ISO7String.h"
#include "Types/J2KCodingStyleDefault.h"
#include "Types/J2KQuantisationDefault.h"
#include "Types/StrongReference.h"
#include "Types/UTF16String.h"
#include "Types/Unknown.h"
#include "Types/WeakReference.h"
#include "support/BytesSink.h"
#include "support/Failure.h"
#include "support/ForEachReadSize.h"
#include "support/Values.h"

namespace Vantry { namespace Tests {

namespace {

std::string narrow(unsigned short const * text)
{
    return Platform::wstringToString(text).c_str();
}

Templates::wstring wide(char const * text)
{
    return Platform::stringToWstring(text);
}

}

template <class X>
class Opaque : public testing::Test
{
};

using OpaqueClasses = testing::Types<Types::DataValue, Types::DataStream, Types::Unknown>;
TYPED_TEST_SUITE(Opaque, OpaqueClasses);

TYPED_TEST(Opaque, TakesAllThatRemains)
{
    for (std::size_t size : {0, 1, 20, 70000})
        forEachReadSize(counting(size) + hex("AA"),
                        [&](DataIO::DataSource & source)
                        {
                            KLV::Value value(source, size);
                            TypeParam const read(value);
                            EXPECT_EQ(source.absoluteOffset(), size);
                            EXPECT_TRUE(read == TypeParam(counting(size).data(), static_cast<unsigned>(size)));
                            EXPECT_EQ(read.value().size(), size);
                            EXPECT_EQ(read.serializedSize(), size % 65536);
                            EXPECT_EQ(serialized(read), counting(size % 65536));
                        });
}

TEST(Opaque, OfKnownKindIsBelow4GiB)
{
    BytesSource source(hex("01"));
    KLV::Value value(source, UInt64(1) << 32);
    LengthFailure const expected = {"Type size exceeded", {}};
    EXPECT_EQ(lengthFailureOf([&] { Types::DataValue read(value); }), expected);
    EXPECT_EQ(lengthFailureOf([&] { Types::DataStream read(value); }), expected);
    EXPECT_EQ(lengthFailureOf([&] { Types::ISO7String read(value); }), expected);
    EXPECT_EQ(source.absoluteOffset(), 0u);
}

TEST(ISO7String, KeepsItsTerminatorOrNone)
{
    std::tuple<char const *, char const *, unsigned short, unsigned short> const CASES[] = {
        {"", "", 0, 0xFFFF},        {"61 62", "ab", 3, 2},      {"61 62 00", "ab", 3, 2},
        {"61 00 62 63", "a", 5, 1}, {"61 00 00 00", "a", 4, 1}, {"E9 80", "\xE9\x80", 3, 2},
    };
    for (auto const & [wire, text, size, length] : CASES)
    {
        Types::ISO7String const read = valueOf<Types::ISO7String>(hex(wire));
        EXPECT_STREQ(read.value(), text);
        EXPECT_EQ(read.size(), size);
        EXPECT_EQ(read.stringLength(), length);
        EXPECT_EQ(serialized(read), hex(wire));
    }

    Types::ISO7String const made("ab");
    EXPECT_EQ(serialized(made), hex("61 62 00"));
    EXPECT_EQ(made.stringLength(), 0xFFFF) << "the text itself holds no zero";
}

TEST(UTF16String, KeepsItsTerminatorOrNone)
{
    std::pair<char const *, char const *> const CASES[] = {
        {"", ""},
        {"00 61 20 AC 00 00", "a\xE2\x82\xAC"},
        {"00 61 00 00 00 62", "a"},
    };
    for (auto const & [wire, text] : CASES)
    {
        Types::UTF16String const read = valueOf<Types::UTF16String>(hex(wire));
        EXPECT_EQ(narrow(read.value()), text);
        EXPECT_EQ(read.size(), wide(text).size());
        EXPECT_EQ(read.stringLength(), wide(text).size());
        EXPECT_EQ(serialized(*read.clone()), hex(wire));
    }

    EXPECT_EQ(serialized(Types::UTF16String(wide("a\xE2\x82\xAC").c_str())), hex("00 61 20 AC 00 00"));
    EXPECT_FAILURE(InvalidLength,
                   "source.remaining () % sizeof (Platform::UInt16) == 0: "
                   "UTF-16 data must have a even number of bytes.",
                   valueOf<Types::UTF16String>(hex("00 61 00")));
}

TEST(Reference, IsTheIdentifierOfASet)
{
    Bytes const bytes = counting(16);
    Types::StrongReference const strong = valueOf<Types::StrongReference>(bytes);
    EXPECT_EQ(serialized(strong), bytes);
    EXPECT_TRUE(strong.uuid() == Types::UUID(bytes.data()));
    EXPECT_EQ(narrow(strong.toString().c_str()), "00.01.02.03.04.05.06.07.08.09.0a.0b.0c.0d.0e.0f");
    EXPECT_TRUE(strong == Types::StrongReference(strong.toString().c_str()));
    EXPECT_TRUE(Types::WeakReference(strong.uuid()) < Types::WeakReference(counting(16, 1).data()));
    EXPECT_FAILURE(InvalidLength, "Not enough data", Types::WeakReference(wide("00.01").c_str()));
}

TEST(J2KDefault, HasAHeadAndATail)
{
    Bytes const wire = hex("01 02 03 04 05 06 07 08 09 0A");
    Types::J2KCodingStyleDefault const style = valueOf<Types::J2KCodingStyleDefault>(wire);
    EXPECT_EQ(style.scod(), 1);
    EXPECT_EQ(style.sGcod(), 0x02030405u);
    EXPECT_EQ(serialized(style.spcod()), hex("06 07 08 09 0A"));
    EXPECT_TRUE(style == Types::J2KCodingStyleDefault(1, 0x02030405, wire.data() + 5, 5));

    Types::J2KQuantisationDefault const steps = valueOf<Types::J2KQuantisationDefault>(hex("20 48"));
    EXPECT_EQ(steps.sqcd(), 0x20);
    EXPECT_EQ(serialized(steps.sPgcd()), hex("48"));
}

TEST(J2KDefault, HasALeastSize)
{
    Bytes const few = counting(9);
    EXPECT_FAILURE(InvalidValue,
                   "source.remaining () >= MINIMUM_J2KCODINGSTYLEDEFAULT_SIZE: J2KCodingStyleDefault size is smaller "
                   "than required. J2KCodingStyleDefault must be at least 10 bytes.",
                   valueOf<Types::J2KCodingStyleDefault>(few));
    EXPECT_FAILURE(InvalidValue,
                   "spcodBufferSize >= MINIMUM_J2KCODINGSTYLEDEFAULT_SPCOD_SIZE: J2KCodingStyleDefault Spcod item "
                   "size is smaller than required. Spcod must be at least 5 bytes.",
                   Types::J2KCodingStyleDefault(0, 0, few.data(), 4));
    EXPECT_FAILURE(InvalidValue,
                   "source.remaining () >= MINIMUM_J2KQUANTISATIONDEFAULT_SIZE: J2KQuantisationDefault size is "
                   "smaller than required. J2KCodingStyleDefault must be at least 2 bytes.",
                   valueOf<Types::J2KQuantisationDefault>(few.first(1)));
    EXPECT_FAILURE(InvalidValue,
                   "sPgcdBufferSize >= MINIMUM_J2KQUANTISATIONDEFAULT_SPGCD_SIZE: J2KQuantisationDefault sPgcd item "
                   "size is smaller than required. Spcod must be at least 1 bytes.",
                   Types::J2KQuantisationDefault(0, few.data(), 0));
}

}}

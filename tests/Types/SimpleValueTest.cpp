#include "Types/Boolean.h"
#include "Types/Factories/BaseTypeFactory.h"
#include "Types/Identifiers.h"
#include "Types/Int16.h"
#include "Types/Int32.h"
#include "Types/Int64.h"
#include "Types/Int8.h"
#include "Types/J2KPictureComponent.h"
#include "Types/Length.h"
#include "Types/Orientation.h"
#include "Types/Position.h"
#include "Types/ProductVersion.h"
#include "Types/RGBALayout.h"
#include "Types/Rational.h"
#include "Types/SignalStandard.h"
#include "Types/Timestamp.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt64.h"
#include "Types/UInt8.h"
#include "Types/UTF16.h"
#include "Types/VersionType.h"
#include "Types/Visitors/GetIdentifierVisitor.h"
#include "support/BytesSink.h"
#include "support/Failure.h"
#include "support/Values.h"

#include <memory>
#include <typeinfo>

namespace Vantry { namespace Tests {

namespace {

namespace Identifiers = Types::Identifiers;

// What is the same for every class is tried on a value made in code and on
// one read by the factory: they have the same bytes, class and identifier.
class Sample
{
public:
    template <class X>
    Sample(Identifiers::Identifier identifier, X const & value, std::string const & wire) :
        identifier(identifier), wire(hex(wire)), made(value.clone().release()), equals(&sameAs<X>)
    {
    }

    Identifiers::Identifier identifier;
    Bytes wire;
    std::shared_ptr<Types::SimpleDataType> made;
    bool (*equals)(Types::SimpleDataType const &, Types::SimpleDataType const &);

private:
    template <class X>
    static bool sameAs(Types::SimpleDataType const & left, Types::SimpleDataType const & right)
    {
        return typeid(left) == typeid(X) && typeid(right) == typeid(X) &&
               static_cast<X const &>(left) == static_cast<X const &>(right);
    }
};

Types::RGBALayout rgba()
{
    Types::RGBALayout layout;
    layout.set(0, {'R', 8});
    layout.set(7, {'A', 10});
    return layout;
}

Types::Timestamp const NOON(2026, 12, 31, 12, 5, 59, static_cast<unsigned short>(999));

Sample const SAMPLES[] = {
    {Identifiers::Int8, Types::Int8(-2), "FE"},
    {Identifiers::Int16, Types::Int16(-2), "FF FE"},
    {Identifiers::Int32, Types::Int32(-2), "FF FF FF FE"},
    {Identifiers::Int64, Types::Int64(-2), "FF FF FF FF FF FF FF FE"},
    {Identifiers::UInt8, Types::UInt8(0x81), "81"},
    {Identifiers::UInt16, Types::UInt16(0x8123), "81 23"},
    {Identifiers::UInt32, Types::UInt32(0x81234567), "81 23 45 67"},
    {Identifiers::UInt64, Types::UInt64(0x8123456789ABCDEF), "81 23 45 67 89 AB CD EF"},
    {Identifiers::Length, Types::Length(-1), "FF FF FF FF FF FF FF FF"},
    {Identifiers::Position, Types::Position(25), "00 00 00 00 00 00 00 19"},
    {Identifiers::Orientation, Types::Orientation(3), "03"},
    {Identifiers::SignalStandard, Types::SignalStandard(4), "04"},
    {Identifiers::Boolean, Types::Boolean(true), "01"},
    {Identifiers::Rational, Types::Rational(50, -2), "00 00 00 32 FF FF FF FE"},
    {Identifiers::Rational, Types::Rational(0, 0), "00 00 00 00 00 00 00 00"},
    {Identifiers::TimestampType, NOON, "07 EA 0C 1F 0C 05 3B F9"},
    {Identifiers::ProductVersionType, Types::ProductVersion(1, 2, 3, 4, Types::ProductVersion::RELEASE_BETA),
     "00 01 00 02 00 03 00 04 00 04"},
    {Identifiers::VersionType, Types::VersionType(1, 3), "01 03"},
    {Identifiers::UTF16, Types::UTF16(0x20AC), "20 AC"},
    {Identifiers::RGBALayout, rgba(), "52 08 00 00 00 00 00 00 00 00 00 00 00 00 41 0A"},
    {Identifiers::J2KPictureComponentType, Types::J2KPictureComponent(7, 1, 2), "07 01 02"},
};

}

TEST(SimpleValue, IsItsWireForm)
{
    for (Sample const & sample : SAMPLES)
    {
        SCOPED_TRACE(Platform::wstringToString(Identifiers::identifierToString(sample.identifier)).c_str());
        EXPECT_EQ(serialized(*sample.made), sample.wire);

        BytesSource source(sample.wire + hex("AA"));
        KLV::Value value(source, sample.wire.size());
        auto const read = Types::Factories::BaseTypeFactory::instance().create(value, sample.identifier);
        EXPECT_TRUE(value.endOfStream()) << "reads its own bytes and no more";
        EXPECT_TRUE(sample.equals(*read, *sample.made)) << "and is of the same class";
        EXPECT_EQ(serialized(*read->clone()), sample.wire);

        Types::Visitors::GetIdentifierVisitor visitor;
        read->accept(visitor);
        EXPECT_EQ(visitor.identifier(), sample.identifier);
        EXPECT_EQ(Identifiers::typeSize(sample.identifier),
                  sample.identifier == Identifiers::Orientation ? 4 : read->serializedSize());
    }
}

TEST(SimpleValue, ComparesAsANumber)
{
    EXPECT_TRUE(Types::Int64(std::numeric_limits<Int64>::min()) < Types::Int64(0));
    EXPECT_TRUE(Types::Length(-1) < Types::Length(0));
}

TEST(Boolean, KeepsTheByteThatMeansTrue)
{
    Types::Boolean const read = valueOf<Types::Boolean>(hex("FF"));
    EXPECT_TRUE(read.value());
    EXPECT_EQ(serialized(read), hex("FF"));
}

TEST(Timestamp, RefusesFieldsOutOfRange)
{
    struct
    {
        unsigned char month, day, hour, minute, second;
        unsigned short milliSecond;
        char const * failure;
    } const CASES[] = {
        {13, 32, 24, 60, 60, 1000, "milliSecond < 1000: Invalid Time: Millisecond must be smaller than 1000"},
        {13, 32, 24, 60, 60, 999, "second < 60: Invalid Time: Second must be smaller than 60"},
        {13, 32, 24, 60, 59, 999, "minute < 60: Invalid Time: Minute must be smaller than 60"},
        {13, 32, 24, 59, 59, 999, "hour < 24: Invalid Time: Hour must be smaller than 60"},
        {13, 32, 23, 59, 59, 999, "day < 32: Invalid Date: Day must be smaller than 32"},
        {13, 31, 23, 59, 59, 999, "month < 13: Invalid Date: Month must be smaller than 13"},
    };
    for (auto const & c : CASES)
        EXPECT_FAILURE(InvalidValue, c.failure,
                       Types::Timestamp(2026, c.month, c.day, c.hour, c.minute, c.second, c.milliSecond));

    EXPECT_FAILURE(InvalidValue, "mSec4 < 250: Invalid Time: Millisecond must be smaller than 250",
                   Types::Timestamp(2026, 1, 1, 0, 0, 0, static_cast<unsigned char>(250)));
    EXPECT_EQ(NOON.milliSecond(), 996) << "in steps of four";
    EXPECT_NO_THROW(Types::Timestamp(0, 0, 0, 0, 0, 0, static_cast<unsigned short>(0))) << "the unknown time";
    EXPECT_NO_THROW(valueOf<Types::Timestamp>(repeated(8, 0xFF))) << "what a file holds is taken as it is";
}

TEST(Rational, IsReducedOnlyWhenAsked)
{
    int const LOWEST = std::numeric_limits<int>::min();
    std::tuple<int, int, int, int> const CASES[] = {
        {50, 2, 25, 1}, {-4, -6, 2, 3}, {0, 5, 0, 5}, {7, 0, 7, 0}, {LOWEST, -1, LOWEST, -1}, // 2^31 has no room
    };
    for (auto const & [numerator, denominator, normalNumerator, normalDenominator] : CASES)
    {
        Types::Rational rational(numerator, denominator);
        EXPECT_EQ(rational.numerator(), numerator);
        EXPECT_EQ(rational.denominator(), denominator);
        EXPECT_TRUE(rational == Types::Rational(normalNumerator, normalDenominator));
        rational.normalize();
        EXPECT_EQ(rational.numerator(), normalNumerator);
        EXPECT_EQ(rational.denominator(), normalDenominator);
    }
}

TEST(Rational, Computes)
{
    Types::Rational const half(1, 2);
    Types::Rational const third(2, 6);
    EXPECT_EQ(serialized(half + third), serialized(Types::Rational(5, 6)));
    EXPECT_EQ(serialized(half - third), serialized(Types::Rational(1, 6)));
    EXPECT_EQ(serialized(half * third), serialized(Types::Rational(1, 6)));
    EXPECT_EQ(serialized(half / third), serialized(Types::Rational(3, 2)));
    EXPECT_TRUE(third < half && Types::Rational(-1, 2) < third);
    EXPECT_TRUE(Types::Rational(5, 0) == Types::Rational(0, 7)) << "undefined is nought";

    Types::Rational undefined(0, 0);
    Types::Rational one(1, 1);
    EXPECT_TRUE(undefined.isUndefined());
    EXPECT_FAILURE(InvalidValue, "this -> isUndefined () == false: Operation with undefined value.", undefined += one);
    EXPECT_FAILURE(InvalidValue, "r.isUndefined () == false: Operation with undefined value.", one /= undefined);
    EXPECT_FAILURE(InvalidValue, "r_num != 0: Division by 0.", one /= Types::Rational(0, 1));
}

TEST(RGBALayout, HasEightComponents)
{
    Types::RGBALayout layout = rgba();
    EXPECT_EQ(layout.get(7).code, 'A');
    EXPECT_EQ(layout.get(7).depth, 10);
    EXPECT_FAILURE(InvalidValue, "Cannot set in this index", layout.get(8));
    EXPECT_FAILURE(InvalidValue, "Cannot set in this index", layout.set(8, {'B', 8}));
}

TEST(TypeIdentifiers, HaveNamesAndSizes)
{
    for (int i = 0; i <= Identifiers::J2KQuantisationDefault; ++i)
    {
        auto const identifier = static_cast<Identifiers::Identifier>(i);
        EXPECT_EQ(Identifiers::stringToIdentifier(Identifiers::identifierToString(identifier)), identifier);
    }

    for (auto const & [name, identifier] :
         {std::pair("UL", 23), {"J2KPictureComponent", 37}, {"J2KPictureComponentType", 37}, {"UInt640", 24}})
        EXPECT_EQ(Identifiers::stringToIdentifier(Platform::stringToWstring(name).c_str()), identifier) << name;

    EXPECT_EQ(Identifiers::typeSize(Identifiers::Key), 16);
    EXPECT_FAILURE(InvalidType, "Type has a variable size.", Identifiers::typeSize(Identifiers::Array));
}

}}

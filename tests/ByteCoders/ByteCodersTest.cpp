#include "ByteCoders/BCD.h"
#include "ByteCoders/BER.h"
#include "ByteCoders/Text.h"
#include "support/Bytes.h"
#include "support/Failure.h"

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

struct Length
{
    UInt64 value;
    unsigned char size;
    Bytes field;
};

Length const LENGTHS[] = {
    {127, 1, hex("7F")},
    {128, 2, hex("81 80")},
    {65536, 4, hex("83 01 00 00")},
    {0x7FFFFFFFFFFFFFFF, 9, hex("88 7F FF FF FF FF FF FF FF")},
};

Length const LONGER_THAN_NEEDED[] = {
    {5, 4, hex("83 00 00 05")},
    {0xFEDCBA9876543210, 9, hex("88 FE DC BA 98 76 54 32 10")},
};

void expectField(Length const & length)
{
    Bytes field(length.size);
    ByteCoders::codeBER(length.value, length.size, field.data());
    EXPECT_EQ(field, length.field);

    UInt64 value = 0;
    EXPECT_EQ(ByteCoders::decodeBERSize(field[0]), length.size);
    ByteCoders::decodeBER(field.data(), length.size, value);
    EXPECT_EQ(value, length.value);
}

}

TEST(BER, CodesAndDecodesLengths)
{
    for (Length const & length : LENGTHS)
    {
        EXPECT_EQ(ByteCoders::calculateBERSize(length.value), length.size) << length.value;
        expectField(length);
    }
    for (Length const & length : LONGER_THAN_NEEDED)
        expectField(length);
}

TEST(BER, LeavesTheLowBitsOfWhatDoesNotFit)
{
    unsigned char field[1];
    ByteCoders::codeBER(300, 1, field);
    EXPECT_EQ(field[0], 0x2C);

    UInt64 value = 0;
    ByteCoders::decodeBER(hex("89 01 00 00 00 00 00 00 00 02").data(), 10, value);
    EXPECT_EQ(value, 2u);
}

TEST(BER, RefusesWhatIsNoLengthField)
{
    unsigned char field[2];
    UInt64 value = 0;
    EXPECT_FAILURE(InvalidFormat, "Invalid BER size", ByteCoders::codeBER(0, 0, field));
    EXPECT_FAILURE(InvalidFormat, "Invalid BER size", ByteCoders::codeBER(0, 10, field));
    EXPECT_FAILURE(InvalidFormat, "BER size not big enough to hold value length", ByteCoders::codeBER(300, 2, field));
    EXPECT_FAILURE(InvalidFormat, "Invalid BER size: 0x80", ByteCoders::decodeBERSize(0x80));
    EXPECT_FAILURE(InvalidFormat, "Invalid BER size: 0xff", ByteCoders::decodeBER(hex("FF").data(), 1, value));
}

TEST(BCD, HoldsEightDigitsLeastSignificantFirst)
{
    Bytes bytes(4);
    ByteCoders::encodeBCD(bytes.data(), 123456789);
    EXPECT_EQ(bytes, hex("89 67 45 23"));

    int digits = -1;
    ByteCoders::decodeBCD(bytes.data(), 3, digits);
    EXPECT_EQ(digits, 789);
    ByteCoders::decodeBCD(bytes.data(), 8, digits);
    EXPECT_EQ(digits, 23456789);

    int value = -1;
    ByteCoders::decodeBCD(hex("1F").data(), 2, value);
    EXPECT_EQ(value, 25) << "a nibble above nine";
}

TEST(TextCoders, CountBytesOneWayAndElementsTheOther)
{
    Bytes const big = hex("00 41 D8 3D FF FF");
    Bytes const little = hex("41 00 3D D8 FF FF");
    std::vector<unsigned short> const TEXT = {0x0041, 0xD83D, 0x0000};

    std::vector<unsigned short> text(3);
    ByteCoders::decodeBigEndian(big.data(), 5, text.data());
    EXPECT_EQ(text, TEXT);
    ByteCoders::decodeLittleEndian(little.data(), 5, text.data());
    EXPECT_EQ(text, TEXT);

    Bytes bytes = hex("FF FF FF FF FF FF");
    ByteCoders::encodeBigEndian(text.data(), 2, bytes.data());
    EXPECT_EQ(bytes, big);
    ByteCoders::encodeLittleEndian(text.data(), 2, bytes.data());
    EXPECT_EQ(bytes, little);
}

// System items, byte for byte.

#include "DataIO/Slice.h"
#include "DataIO/SliceReader.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/Multiplexer/SystemItemGenerator.h"
#include "GenericContainer/SequentialTimeCode.h"
#include "GenericContainer/SystemMetadataPack.h"
#include "Types/UniversalLabel.h"
#include "support/Failure.h"
#include "support/Slices.h"

namespace Vantry { namespace GenericContainer { namespace {

using Multiplexer::SystemItemGenerator;
using Tests::Bytes;
using Tests::bytesOf;
using Tests::hex;
using Rate = Templates::Rational<int>;
using Utils::TimeCode;
using Utils::TimeCodeExtended;

Bytes const HEAD = hex("06 0E 2B 34 02 05 01 01 0D 01 03 01 04 01 01 00  83 00 00 39");
Bytes const LABEL = hex("06 0E 2B 34 04 01 01 02 0D 01 03 01 02 04 60 01");
Bytes const EMPTY_SET = hex("06 0E 2B 34 02 43 01 01 0D 01 03 01 04 01 02 00  83 00 00 00");
Bytes const NO_STAMP = Tests::repeated(17, 0);

Bytes stamp(char const * timeCode)
{
    return hex("81") + hex(timeCode) + Tests::repeated(8, 0);
}

SystemMetadataPack parsed(Tests::CountingBlocks & blocks, Bytes const & value)
{
    DataIO::SliceReader reader(Tests::pieceSource(
        blocks, {value.first(value.size() / 2), Bytes(value.begin() + value.size() / 2, value.end())}));
    return SystemMetadataPack(reader);
}

TEST(SystemMetadataPack, IsWrittenAndReadByteForByte)
{
    SystemMetadataPack pack({25, 1});
    EXPECT_EQ(bytesOf(*pack.serialize()), HEAD + hex("00 04") + Tests::repeated(55, 0));
    EXPECT_FALSE(pack.creationTimecode().isDefined());

    pack.universalLabel(Types::UniversalLabel(LABEL.data()));
    pack.userTimecode(TimeCode(25, 12, 34, 56, 24, false, false));
    pack.soundItem(true);
    pack.controlElement(true);
    pack.pictureItem(true);
    pack.pictureItem(false);
    pack.incrementContinuityCount();
    Bytes const value = hex("55 04 00 00 00 00 01") + LABEL + NO_STAMP + stamp("24 56 34 12 00 00 00 00");
    EXPECT_EQ(bytesOf(*pack.serialize()), HEAD + value);
    EXPECT_EQ(pack.serializedSize(), 77u);

    Tests::CountingBlocks blocks;
    SystemMetadataPack read = parsed(blocks, value + hex("FF"));
    EXPECT_EQ(bytesOf(*read.serialize()), HEAD + value);
    EXPECT_EQ(read.packageRate(), Rate(25));
    EXPECT_EQ(read.userTimecode(), TimeCode(25, 12, 34, 56, 24, false, false));
    EXPECT_EQ(read.universalLabel(), Types::UniversalLabel(LABEL.data()));
    EXPECT_TRUE(read.soundItem() && read.controlElement() && !read.pictureItem() && !read.dataItem());
    read.creationTimecode(TimeCode(25));
    read.dataItem(true);
    EXPECT_EQ(bytesOf(*read.serialize()), HEAD + hex("77 04 00 00 00 00 01") + LABEL +
                                              stamp("00 00 00 00 00 00 00 00") + stamp("24 56 34 12 00 00 00 00"));

    for (int i = 1; i < 65536; ++i)
        read.incrementContinuityCount();
    EXPECT_EQ(read.continuityCount(), 0);

    EXPECT_FAILURE(NotEnoughData, "slice -> size () == sizeof (WholePack): Not enough data to read SystemMetadataPack",
                   parsed(blocks, value.first(56)));
    Bytes const nonsense = hex("10 04 00 00 00 00 01") + LABEL + NO_STAMP + stamp("3F 7F 7F 3F 00 00 00 00");
    EXPECT_THROW(parsed(blocks, nonsense).userTimecode(), Exceptions::InvalidValue);
}

TEST(SystemMetadataPack, HasACodeForEachRate)
{
    std::tuple<Rate, unsigned char, Rate> const cases[] = {
        {24, 0x02, 24},
        {{24000, 1001}, 0x03, {24000, 1001}},
        {{30000, 1001}, 0x07, {30000, 1001}},
        {50, 0x0A, 50},
        {{60000, 1001}, 0x0D, {60000, 1001}},
        {120, 0x18, 120},
        {23, 0x00, 0},
        {{25, 2}, 0x04, 25},
        {{31000, 1001}, 0x01, 0},
    };
    Tests::CountingBlocks blocks;
    for (auto const & [rate, byte, readBack] : cases)
    {
        Bytes const bytes = bytesOf(*SystemMetadataPack(rate).serialize());
        EXPECT_EQ(bytes[21], byte);
        EXPECT_EQ(parsed(blocks, Bytes(bytes.begin() + 20, bytes.end())).packageRate(), readBack);
    }
    EXPECT_EQ(parsed(blocks, hex("00 FF") + Tests::repeated(55, 0)).packageRate(), Rate(0));
}

TEST(Timecode331M, HasUserBitsOfExtendedTimeCodesOnly)
{
    TimeCodeExtended::BinaryGroups groups;
    for (unsigned char i = 0; i < 8; ++i)
        groups.groups[i] = static_cast<unsigned char>(i + 1);
    TimeCodeExtended::BinaryGroups flag0 = groups, flag1 = groups, flag2 = groups;
    flag0.flag0 = flag1.flag1 = flag2.flag2 = true;

    std::tuple<TimeCodeExtended, char const *, char const *> const cases[] = {
        {{30, 10, 21, 32, 13, true, flag0, true, false}, "D3 32 A1 10 12 34 56 78", "53 32 21 10 00 00 00 00"},
        {{30, 10, 21, 32, 13, true, flag2, false, false}, "53 32 21 90 12 34 56 78", "53 32 21 10 00 00 00 00"},
        {{60, 23, 59, 59, 29, false, flag1, false, true}, "29 D9 59 63 12 34 56 78", "29 59 59 23 00 00 00 00"},
        {{25, 10, 21, 32, 13, false, flag0, false, false}, "13 B2 21 10 12 34 56 78", "13 32 21 10 00 00 00 00"},
        {{50, 10, 21, 32, 13, false, flag2, false, true}, "13 32 A1 90 12 34 56 78", "13 32 21 10 00 00 00 00"},
    };
    for (auto const & [timeCode, fullBytes, plainBytes] : cases)
        for (bool asPlain : {false, true})
        {
            Timecode331M written;
            TimeCode const plain(timeCode);
            writeTimecode331M(written, asPlain ? plain : timeCode);
            auto const * const bytes = reinterpret_cast<unsigned char const *>(&written);
            EXPECT_EQ(Bytes(bytes, bytes + sizeof(written)), stamp(asPlain ? plainBytes : fullBytes));
            EXPECT_EQ(readTimecode12M(written.timecode, plain.frameRate()), plain);
        }

    // Frames that have no room make neither a drop frame flag nor a second.
    for (unsigned char const rate : {48, 120})
    {
        Timecode12M written;
        writeTimecode12M(written, TimeCode(rate, 1, 2, 3, static_cast<unsigned char>(rate - 1), false, false));
        EXPECT_EQ(written.bytes[0] & 0xCF, rate == 48 ? 0x07 : 0x09);
        EXPECT_EQ(written.bytes[1], 0x03);
    }
}

// Time codes of which each tells how many there were.
struct Provider : TimeCodeExtendedProvider
{
    TimeCode nextTimeCode() override { return nextTimeCodeExtended(); }
    TimeCodeExtended nextTimeCodeExtended() override { return {rate, Int64(count++), false, {}, true, false}; }
    void roundedFrameRate(unsigned char frameRate) override { rate = frameRate; }

    unsigned char rate = 0;
    unsigned int count = 0;
};

Bytes editUnitOf(SystemItemGenerator & generator)
{
    EditUnit unit;
    EXPECT_TRUE(generator.nextEditUnit(unit));
    EXPECT_TRUE(unit.valid);
    EXPECT_EQ(unit.duration, Rate(1) / generator.editRate());
    EXPECT_EQ(unit.timeCode, generator.currentTimeCode());
    return bytesOf(unit.data);
}

Bytes item(char const * rateAndCount, char const * timeCode)
{
    return HEAD + hex(rateAndCount) + LABEL + NO_STAMP + stamp(timeCode) + EMPTY_SET;
}

TEST(SystemItemGenerator, CountsTimeCodeUp)
{
    TimeCodeExtended::BinaryGroups groups;
    groups.groups[7] = 15;
    TimeCodeExtended const extended(25, 23, 59, 59, 24, false, groups, false, false);
    TimeCode const plain(25, 23, 59, 59, 24, false, false);
    Types::UniversalLabel const label(LABEL.data());
    SystemItemGenerator first(25, plain, label), second(25, extended, label);
    for (SystemItemGenerator * generator : {&first, &second})
    {
        bool const hasUserBits = generator == &second;
        generator->editRate(25);
        EXPECT_EQ(generator->currentTimeCode(), plain);
        EXPECT_TRUE(generator->preload() && generator->preload());
        EXPECT_EQ(editUnitOf(*generator),
                  item("5C 04 00 00 00 00 00", hasUserBits ? "24 59 59 23 00 00 00 0F" : "24 59 59 23 00 00 00 00"));
        EXPECT_EQ(editUnitOf(*generator),
                  item("5C 04 00 00 00 00 01", hasUserBits ? "00 00 00 00 00 00 00 0F" : "00 00 00 00 00 00 00 00"));
        generator->preload();
        generator->preload();
        EXPECT_EQ(editUnitOf(*generator),
                  item("5C 04 00 00 00 00 02", hasUserBits ? "01 00 00 00 00 00 00 0F" : "01 00 00 00 00 00 00 00"));
        EXPECT_FALSE(generator->done());
        EXPECT_EQ(generator->boundedEditUnitSize(), 97u);
        generator->boundedEditUnitSize(200);
        EXPECT_EQ(generator->boundedEditUnitSize(), 200u);
    }

    first.editRate(30);
    EXPECT_EQ(first.currentTimeCode().frameRate(), 30);
    EXPECT_THROW(SystemItemGenerator(25, plain, label).editRate(24), Exceptions::InvalidValue);
    SystemItemGenerator undefined(25, TimeCode(), label);
    undefined.editRate(25);
    EXPECT_FALSE(undefined.currentTimeCode().isDefined());
}

TEST(SystemItemGenerator, AsksAProvider)
{
    Templates::SharedPtr<Provider> const provider(new Provider);
    SystemItemGenerator generator({30000, 1001}, provider, Types::UniversalLabel(LABEL.data()));
    generator.editRate({30000, 1001});
    EXPECT_EQ(provider->rate, 30);
    EXPECT_EQ(editUnitOf(generator), item("5C 07 00 00 00 00 00", "80 00 00 00 00 00 00 00"));
    EXPECT_EQ(editUnitOf(generator), item("5C 07 00 00 00 00 01", "81 00 00 00 00 00 00 00"));
    EXPECT_EQ(provider->count, 2u);
}

}}}

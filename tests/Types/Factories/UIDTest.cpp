#include "Types/Factories/UID.h"

#include "Platform/Network.h"
#include "Platform/PlatformName.h"
#include "Utils/Calendar.h"
#include "Utils/Test/DeterministicScope.h"
#include "Utils/Text.h"
#include "support/Bytes.h"
#include "support/Failure.h"
#include "support/Threads.h"

#include <algorithm>
#include <ctime>
#include <set>

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

using Factory = Types::Factories::UID;

Bytes bytesOf(Types::UID const & id)
{
    return Bytes(id.rawBuffer(), id.rawBuffer() + id.size());
}

Bytes part(Bytes const & bytes, std::size_t from, std::size_t count)
{
    return Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(from),
                 bytes.begin() + static_cast<std::ptrdiff_t>(from + count));
}

Bytes uuid(int version)
{
    return bytesOf(Factory::generateUUID(static_cast<Factory::TimeSnapVersion>(version)));
}

Bytes umid(int materialNumberType, int instanceNumberType, unsigned int instanceNumber = 0,
           Factory::TimeSnapVersion version = Factory::TIME_SNAP_VERSION_1)
{
    return bytesOf(Factory::generateBasicUMID(
        Factory::MATERIAL_MIXED, static_cast<Factory::MaterialNumberType>(materialNumberType),
        static_cast<Factory::InstanceNumberType>(instanceNumberType), version, instanceNumber));
}

Bytes address()
{
    unsigned char const * const bytes = Platform::Network::macAddress();
    return Bytes(bytes, bytes + 6);
}

// The local clock in milliseconds since 1970.
UInt64 localMilliseconds()
{
    std::timespec now = {};
    std::timespec_get(&now, TIME_UTC);
    std::tm local = {};
    localtime_r(&now.tv_sec, &local);
    return static_cast<UInt64>(timegm(&local)) * 1000 + static_cast<UInt64>(now.tv_nsec / 1000000);
}

UInt64 const MILLISECONDS_OF_DAY = 86400000;

// The milliseconds of the day that a time snap of a UMID holds, with the rest
// of the snap checked.
UInt64 timeSnap(Bytes const & snap)
{
    unsigned int const date = Utils::Calendar::getModifiedJulianDate();
    for (int i = 0, divisor = 1; i < 3; ++i, divisor *= 100)
        EXPECT_EQ(snap[4 + i], date / divisor / 10 % 10 * 16 + date / divisor % 10);
    EXPECT_EQ(snap[7], 0x80 + Utils::Calendar::getTimeZone());
    return snap[0] + (snap[1] << 8) + (snap[2] << 16) + (static_cast<UInt64>(snap[3]) << 24);
}

}

TEST(GenerateUUID, HoldsTheTimeInVersion1)
{
    UInt64 const daysFromGregorianReformTo1970 = 141427;
    UInt64 const before = localMilliseconds();
    Bytes const id = uuid(1);
    UInt64 const after = localMilliseconds();

    UInt64 time = static_cast<UInt64>(id[6] & 0x0F) << 8 | id[7];
    for (int i : {4, 5, 0, 1, 2, 3})
        time = time << 8 | id[static_cast<std::size_t>(i)];
    UInt64 const milliseconds = time / 10000 - daysFromGregorianReformTo1970 * MILLISECONDS_OF_DAY;
    EXPECT_LE(before, milliseconds);
    EXPECT_GE(after, milliseconds);

    EXPECT_EQ(id[6] >> 4, 1);
    EXPECT_EQ(id[8] >> 6, 2);
    EXPECT_EQ(part(id, 10, 6), address());
}

TEST(GenerateUUID, IsRandomInVersion4)
{
    Bytes const id = uuid(4);
    EXPECT_EQ(id[6] >> 4, 4);
    EXPECT_EQ(id[8] >> 6, 2);
    EXPECT_EQ(part(id, 10, 6), address());
    EXPECT_NE(part(id, 0, 6), part(uuid(4), 0, 6));
}

TEST(GenerateUUID, KnowsNoOtherVersion)
{
    EXPECT_FAILURE(NotImplemented, "setUUIDTimeSnap:: TIME_SNAP_VERSION_2 not implemented: use TIME_SNAP_VERSION_1",
                   uuid(2));
    EXPECT_FAILURE(NotImplemented, "setUUIDTimeSnap:: TIME_SNAP_VERSION_3 not implemented: use TIME_SNAP_VERSION_1",
                   uuid(3));
}

TEST(GenerateUUID, RepeatsNothingOverThreads)
{
    std::vector<std::vector<Bytes>> made(4);
    onThreads(4,
              [&](unsigned int t)
              {
                  for (int i = 0; i < 1000; ++i)
                      made[t].push_back(uuid(1));
              });

    std::set<Bytes> all;
    for (std::vector<Bytes> const & mine : made)
        all.insert(mine.begin(), mine.end());
    EXPECT_EQ(all.size(), 4000u);
}

TEST(GenerateBasicUMID, SaysHowItWasMade)
{
    for (int material : {0, 16, 32, 64, 128})
        for (int instance : {0, 1, 2, 3, 7})
        {
            Bytes const expected = hex("060A2B34 01010105 0101 0D 00 13");
            Bytes head = part(umid(material, instance), 0, 13);
            EXPECT_EQ(head[11], material + instance);
            head[11] = 0;
            EXPECT_EQ(head, expected);
        }
}

TEST(GenerateBasicUMID, MakesTheInstanceNumber)
{
    unsigned int const number = 0x44332211;
    EXPECT_EQ(part(umid(16, 1, number), 13, 3), hex("22 33 44"));
    EXPECT_EQ(part(umid(16, 7, number), 13, 3), hex("00 00 00"));
    EXPECT_EQ(umid(16, 3, number)[13], 0x11);
    EXPECT_NE(part(umid(16, 2), 13, 3), part(umid(16, 2), 13, 3)) << "random";
}

TEST(GenerateBasicUMID, MakesTheMaterialNumber)
{
    for (int type : {0, 16, 64})
    {
        UInt64 const before = localMilliseconds();
        Bytes const number = part(umid(type, 2), 16, 16);
        UInt64 const after = localMilliseconds();
        if (before / MILLISECONDS_OF_DAY == after / MILLISECONDS_OF_DAY)
        {
            UInt64 const time = timeSnap(number);
            EXPECT_LE(before % MILLISECONDS_OF_DAY, time);
            EXPECT_GE(after % MILLISECONDS_OF_DAY, time);
        }
        if (type == 64)
            EXPECT_EQ(part(number, 8, 8), address().first(3) + hex("FF FF") + part(address(), 3, 3));
        else
            EXPECT_EQ(part(number, 10, 6), address());
    }

    EXPECT_EQ(part(umid(128, 2), 16, 16), repeated(16, 0));
    EXPECT_FAILURE(NotImplemented, "setMaterialNumber:: MNMI_MASKED not implemented: use other type", umid(48, 2));
}

TEST(DeterministicScope, CountsIdentifiers)
{
    for (int run = 0; run < 2; ++run)
    {
        Utils::Test::DeterministicScope const scope;
        EXPECT_EQ(uuid(2), hex("00 00 00 00") + repeated(12, 1));
        EXPECT_EQ(umid(48, 9), hex("01 00 00 00") + repeated(28, 1));
        for (int i = 2; i < 0x102; ++i)
            uuid(1);
        EXPECT_EQ(uuid(1), hex("02 01 00 00") + repeated(12, 1));
        EXPECT_EQ(Utils::wstringToString(Platform::platformName()), "win32");
    }

    EXPECT_NE(part(uuid(1), 10, 6), repeated(6, 1));
    EXPECT_EQ(Platform::platformName(), Platform::realPlatformName());
}

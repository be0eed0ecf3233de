#include "Types/Factories/UID.h"

#include "ByteCoders/BCD.h"
#include "Exceptions/Check.h"
#include "Exceptions/NotImplemented.h"
#include "Initializer.h"
#include "Platform/BigEndian.h"
#include "Platform/Integers.h"
#include "Platform/Network.h"
#include "Platform/Random.h"
#include "Platform/Synchronization/ScopedLock.h"
#include "Platform/Time.h"
#include "Types/Factories/DeterministicMode.h"
#include "Utils/Calendar.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Vantry { namespace Types { namespace Factories {

namespace {

std::size_t const ADDRESS_SIZE = 6;

using UUIDBytes = std::array<unsigned char, 16>;
using UMIDBytes = std::array<unsigned char, 32>;

void writeLittleEndian(unsigned char * destination, std::size_t size, Platform::UInt64 value)
{
    for (std::size_t i = 0; i < size; ++i, value >>= 8)
        destination[i] = static_cast<unsigned char>(value);
}

void writeRandom(unsigned char * destination, std::size_t size)
{
    std::generate_n(destination, size, [] { return Platform::rand(); });
}

template <class Bytes>
Bytes deterministicBytes()
{
    Bytes bytes;
    bytes.fill(1);
    writeLittleEndian(bytes.data(), 4, DeterministicMode::nextNumber());
    return bytes;
}

int daysSinceGregorianReform(Platform::Time const & time)
{
    int const year = time.year;
    int const leapDays = (year + 299) / 400 - (year + 99) / 100 + (year + 3) / 4 + 77;
    return leapDays + (year + 318) * 365 + time.dayOfYear - 287;
}

int millisecondsOfDay(Platform::Time const & time)
{
    return ((time.hour * 60 + time.minute) * 60 + time.second) * 1000 + time.milliseconds;
}

// What is added to a whole millisecond, so that identifiers made within one
// differ. The caller holds the mutex.
Platform::UInt64 nextTick()
{
    static unsigned int tick = 0;
    unsigned int const current = tick;
    tick = tick < 10000 ? tick + 1 : 0;
    return current;
}

// Eight bytes: the time in units of 100 ns (RFC 4122, 4.1.2).
void writeVersion1(unsigned char * destination)
{
    Platform::Time const time = Platform::utctime();
    Platform::UInt64 const days = static_cast<Platform::UInt64>(daysSinceGregorianReform(time));
    Platform::UInt64 const milliseconds = days * 86400000 + static_cast<unsigned int>(millisecondsOfDay(time));
    Platform::UInt64 const ticks = milliseconds * 10000 + nextTick();

    Platform::writeBigEndian(static_cast<Platform::UInt32>(ticks), destination);
    Platform::writeBigEndian(static_cast<Platform::UInt16>(ticks >> 32), destination + 4);
    Platform::writeBigEndian(static_cast<Platform::UInt16>((ticks >> 48 & 0x0FFF) | 0x1000), destination + 6);
}

// Returns how many bytes it wrote.
std::size_t writeUUIDTimeSnap(unsigned char * destination, UID::TimeSnapVersion version)
{
    switch (version)
    {
    case UID::TIME_SNAP_VERSION_1:
        writeVersion1(destination);
        return 8;
    case UID::TIME_SNAP_VERSION_2:
        VANTRY_FAIL(NotImplemented, "setUUIDTimeSnap:: TIME_SNAP_VERSION_2 not implemented: use TIME_SNAP_VERSION_1");
    case UID::TIME_SNAP_VERSION_3:
        VANTRY_FAIL(NotImplemented, "setUUIDTimeSnap:: TIME_SNAP_VERSION_3 not implemented: use TIME_SNAP_VERSION_1");
    case UID::TIME_SNAP_VERSION_4:
        writeRandom(destination, 8);
        destination[6] = static_cast<unsigned char>((destination[6] & 0x0F) | 0x40);
        return 8;
    }
    return 0;
}

UUIDBytes makeUUID(UID::TimeSnapVersion version)
{
    UUIDBytes bytes = {};
    unsigned char * const rest = bytes.data() + writeUUIDTimeSnap(bytes.data(), version);
    writeRandom(rest, 2);
    rest[0] = static_cast<unsigned char>(rest[0] % 64 | 0x80);
    std::copy_n(Platform::Network::macAddress(), ADDRESS_SIZE, rest + 2);
    return bytes;
}

// Eight bytes: time of the day, date and time zone (SMPTE 330M, annex A).
void writeTimeSnap(unsigned char * destination)
{
    writeLittleEndian(destination, 4, static_cast<unsigned int>(millisecondsOfDay(Platform::utctime())));

    unsigned char date[4];
    ByteCoders::encodeBCD(date, static_cast<int>(Utils::Calendar::getModifiedJulianDate()));
    std::copy_n(date, 3, destination + 4);

    destination[7] = static_cast<unsigned char>((Utils::Calendar::getTimeZone() & 0x3F) | 0x80);
}

void writeInstanceNumber(unsigned char * destination, UID::InstanceNumberType type, unsigned int instanceNumber)
{
    switch (type)
    {
    case UID::INSTANCE_LOCAL_REGISTRATION:
        writeLittleEndian(destination, 3, instanceNumber >> 8);
        break;
    case UID::INSTANCE_NOT_DEFINED:
    case UID::INSTANCE_RANDOM:
        writeRandom(destination, 3);
        break;
    case UID::INSTANCE_COPY_NUMBER:
        destination[0] = static_cast<unsigned char>(instanceNumber);
        writeRandom(destination + 1, 2);
        break;
    }
}

void writeMaterialNumber(unsigned char * destination, UID::MaterialNumberType type, UID::TimeSnapVersion version)
{
    unsigned char const * const address = Platform::Network::macAddress();
    switch (type)
    {
    case UID::MNMI_NOT_DEFINED:
    case UID::MNMI_SMPTE:
        writeTimeSnap(destination);
        writeRandom(destination + 8, 2);
        std::copy_n(address, ADDRESS_SIZE, destination + 10);
        break;
    case UID::MNMI_UUID:
    {
        UUIDBytes const uuid = makeUUID(version);
        std::copy(uuid.begin(), uuid.end(), destination);
        break;
    }
    case UID::MNMI_MASKED:
        VANTRY_FAIL(NotImplemented, "setMaterialNumber:: MNMI_MASKED not implemented: use other type");
    case UID::MNMI_IEEE1394:
        writeTimeSnap(destination);
        std::copy_n(address, 3, destination + 8);
        std::fill_n(destination + 11, 2, 0xFF);
        std::copy_n(address + 3, 3, destination + 13);
        break;
    }
}

}

UUID UID::generateUUID(TimeSnapVersion version)
{
    Platform::Synchronization::ScopedLock const lock(Initializer::instance().singletonMutex());
    UUIDBytes const bytes = DeterministicMode::isOn() ? deterministicBytes<UUIDBytes>() : makeUUID(version);
    return UUID(bytes.data());
}

UMID32 UID::generateBasicUMID(MaterialType materialType, MaterialNumberType materialNumberType,
                              InstanceNumberType instanceNumberType, TimeSnapVersion timeSnapVersion,
                              unsigned int instanceNumber)
{
    Platform::Synchronization::ScopedLock const lock(Initializer::instance().singletonMutex());
    if (DeterministicMode::isOn())
        return UMID32(deterministicBytes<UMIDBytes>().data());

    UMIDBytes bytes = {0x06, 0x0A, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x05, 0x01, 0x01};
    bytes[10] = materialType;
    bytes[11] = static_cast<unsigned char>(static_cast<unsigned int>(materialNumberType) | instanceNumberType);
    bytes[12] = 19; // bytes that follow
    writeInstanceNumber(&bytes[13], instanceNumberType, instanceNumber);
    writeMaterialNumber(&bytes[16], materialNumberType, timeSnapVersion);
    return UMID32(bytes.data());
}

}}}

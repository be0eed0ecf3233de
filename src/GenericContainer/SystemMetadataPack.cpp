#include "GenericContainer/SystemMetadataPack.h"

#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/Slice.h"
#include "DataIO/SliceReader.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/NotEnoughData.h"
#include "Platform/BigEndian.h"
#include "Templates/SafeCast.h"
#include "Types/UniversalLabel.h"
#include "Utils/RoundedUp.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace Vantry { namespace GenericContainer {

namespace {

unsigned char const HEAD[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x05, 0x01, 0x01, 0x0D, 0x01,
                              0x03, 0x01, 0x04, 0x01, 0x01, 0x00, 0x83, 0x00, 0x00, 0x39};
unsigned int const VALUE_SIZE = 57;

// Bits of the bitmap.
unsigned char const LABEL = 0x40;
unsigned char const CREATION_STAMP = 0x20;
unsigned char const USER_STAMP = 0x10;
unsigned char const PICTURE_ITEM = 0x08;
unsigned char const SOUND_ITEM = 0x04;
unsigned char const DATA_ITEM = 0x02;
unsigned char const CONTROL_ELEMENT = 0x01;

// A rate's code is its place here; that of any other is 0.
int const NOMINAL_RATES[] = {0, 24, 25, 30, 48, 50, 60, 72, 75, 90, 96, 100, 120};

// Bit 0 of the rate byte; the code stands in bits 1 to 5.
unsigned char const IS_BY_1001 = 1;
unsigned char const CODE = 0x1F;

using Rate = Templates::Rational<int>;

unsigned char rateByte(Rate const & rate)
{
    bool const isBy1001 = rate.denominator() == 1001;
    int const nominal = isBy1001 ? Rate(rate.numerator(), 1000).numerator() : rate.numerator();
    auto const * const found = std::find(std::begin(NOMINAL_RATES), std::end(NOMINAL_RATES), nominal);
    auto const code = found == std::end(NOMINAL_RATES) ? 0 : found - std::begin(NOMINAL_RATES);
    return static_cast<unsigned char>(code << 1 | (isBy1001 ? IS_BY_1001 : 0));
}

Rate rateOf(unsigned char byte)
{
    unsigned int const code = byte >> 1 & CODE;
    int const nominal = code < std::size(NOMINAL_RATES) ? NOMINAL_RATES[code] : 0;
    return (byte & IS_BY_1001) != 0 ? Rate(nominal) * Rate(1000, 1001) : Rate(nominal);
}

}

SystemMetadataPack::SystemMetadataPack(Rate const & packageRate) : pack_(), packageRate_(packageRate)
{
    writeHead();
    pack_.rate = rateByte(packageRate);
}

SystemMetadataPack::SystemMetadataPack(DataIO::SliceReader & reader) : pack_()
{
    Templates::auto_ptr<DataIO::Slice> const slice = reader.read(VALUE_SIZE);
    VANTRY_CHECK_TEXT(slice->size() == VALUE_SIZE, "slice -> size () == sizeof (WholePack)", NotEnoughData,
                      "Not enough data to read SystemMetadataPack");
    writeHead();
    std::copy(slice->begin(), slice->end(), bytes() + std::size(HEAD));
    packageRate_ = rateOf(pack_.rate);
}

Templates::auto_ptr<DataIO::Slice> SystemMetadataPack::serialize() const
{
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(sizeof(WholePack));
    std::memcpy(block.block()->data(), &pack_, sizeof(WholePack));
    return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, sizeof(WholePack)));
}

unsigned int SystemMetadataPack::serializedSize() const
{
    static_assert(sizeof(WholePack) == sizeof(HEAD) + VALUE_SIZE, "the packet, byte for byte");
    return sizeof(WholePack);
}

Rate const & SystemMetadataPack::packageRate() const
{
    return packageRate_;
}

Utils::TimeCode SystemMetadataPack::creationTimecode() const
{
    return read(CREATION_STAMP, pack_.creation);
}

Utils::TimeCode SystemMetadataPack::userTimecode() const
{
    return read(USER_STAMP, pack_.user);
}

void SystemMetadataPack::creationTimecode(Utils::TimeCode const & timeCode)
{
    set(CREATION_STAMP, true);
    writeTimecode331M(pack_.creation, timeCode);
}

void SystemMetadataPack::userTimecode(Utils::TimeCode const & timeCode)
{
    set(USER_STAMP, true);
    writeTimecode331M(pack_.user, timeCode);
}

Types::UniversalLabel SystemMetadataPack::universalLabel() const
{
    return Types::UniversalLabel(pack_.label);
}

void SystemMetadataPack::universalLabel(Types::UniversalLabel const & label)
{
    set(LABEL, true);
    std::memcpy(pack_.label, label.rawBuffer(), sizeof(pack_.label));
}

bool SystemMetadataPack::pictureItem() const
{
    return has(PICTURE_ITEM);
}

bool SystemMetadataPack::soundItem() const
{
    return has(SOUND_ITEM);
}

bool SystemMetadataPack::dataItem() const
{
    return has(DATA_ITEM);
}

bool SystemMetadataPack::controlElement() const
{
    return has(CONTROL_ELEMENT);
}

void SystemMetadataPack::pictureItem(bool is)
{
    set(PICTURE_ITEM, is);
}

void SystemMetadataPack::soundItem(bool is)
{
    set(SOUND_ITEM, is);
}

void SystemMetadataPack::dataItem(bool is)
{
    set(DATA_ITEM, is);
}

void SystemMetadataPack::controlElement(bool is)
{
    set(CONTROL_ELEMENT, is);
}

unsigned short SystemMetadataPack::continuityCount() const
{
    return Platform::readBigEndian<UInt16>(pack_.continuityCount);
}

void SystemMetadataPack::incrementContinuityCount()
{
    Platform::writeBigEndian<UInt16>(static_cast<UInt16>(continuityCount() + 1), pack_.continuityCount);
}

bool SystemMetadataPack::has(unsigned char bit) const
{
    return (pack_.bitmap & bit) != 0;
}

void SystemMetadataPack::set(unsigned char bit, bool is)
{
    pack_.bitmap = static_cast<unsigned char>(is ? pack_.bitmap | bit : pack_.bitmap & ~bit);
}

void SystemMetadataPack::writeHead()
{
    std::copy(std::begin(HEAD), std::end(HEAD), bytes());
}

unsigned char * SystemMetadataPack::bytes()
{
    return reinterpret_cast<unsigned char *>(&pack_);
}

Utils::TimeCode SystemMetadataPack::read(unsigned char bit, Timecode331M const & stamp) const
{
    if (!has(bit))
        return Utils::TimeCode();
    return readTimecode12M(
        stamp.timecode, Templates::SafeCast<unsigned char, Exceptions::InvalidValue>(Utils::roundedUp(packageRate_)));
}

}}

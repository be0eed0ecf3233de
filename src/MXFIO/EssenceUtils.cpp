#include "MXFIO/EssenceUtils.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidValue.h"
#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "MXFIO/SaturatingSum.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Packs/PartitionPack.h"
#include "Platform/BigEndian.h"
#include "Types/UniversalLabel.h"
#include "Utils/NumberText.h"

#include <algorithm>

namespace Vantry { namespace MXFIO {

namespace {

using Time = Templates::Rational<Int64>;

unsigned int const TRACK_NUMBER_PLACE = 12;
unsigned int const SYSTEM_ITEM = 4;

Templates::string numbersText(char const * lead, UInt64 first, char const * middle, UInt64 second)
{
    return lead + Utils::hexadecimal(first) + middle + Utils::hexadecimal(second) + ")";
}

UInt64 endOf(DataIO::RandomAccessDataSource const & source)
{
    return source.absoluteOffset() + source.remaining();
}

// Bytes from the start of a body to what ends it.
UInt64 bodySize(UInt64 body, UInt64 end, char const * limit)
{
    if (body > end)
        VANTRY_FAIL(InvalidFormat, numbersText("Expected body offset of partition 0x", body, limit, end));
    return end - body;
}

UInt64 bodySize(Reader & reader, Partition & partition)
{
    UInt64 const body = partition.bodyAbsoluteOffset();
    Partition * const next = reader.nextPartition(&partition);
    return next != nullptr
               ? bodySize(body, next->partitionAbsoluteOffset(), "is higher than begin of next partition (0x")
               : bodySize(body, endOf(reader.source()), "is higher than the total file size (0x");
}

// The last partition with a body of the container.
Partition * lastBodyPartition(Reader2 & reader, unsigned int bodySID)
{
    Partition * const footer = reader.footerPartition();
    Partition * const last = footer != nullptr ? footer : reader.lastLoadedPartition();
    bool const isLast = last != nullptr && last != footer && last->partitionPack().bodySID() == bodySID;
    return isLast ? last : reader.previousPartition(last, bodySID);
}

// Where its body ends: at the partition behind it, or with the file.
UInt64 endOfBody(Reader2 & reader, Partition & partition)
{
    bool const isLast = reader.footerPartition() == nullptr && &partition == reader.lastLoadedPartition();
    Partition * const next = isLast ? nullptr : reader.nextPartition(&partition);
    return next != nullptr ? next->partitionAbsoluteOffset() : endOf(reader.source());
}

}

Time seconds2EditUnits(Time const & seconds, Time const & editRate)
{
    VANTRY_CHECK(editRate > 0, InvalidValue, "Edit rate non-greater than zero.");
    return seconds * editRate;
}

Time editUnits2Seconds(Time const & editUnits, Time const & editRate)
{
    VANTRY_CHECK(editRate > 0, InvalidValue, "Edit rate non-greater than zero.");
    return editUnits / editRate;
}

Time editUnitsConverter(Time const & editUnits, Time const & currentEditRate, Time const & editRate)
{
    VANTRY_CHECK(currentEditRate > 0, InvalidValue, "Edit rate non-greater than zero.");
    VANTRY_CHECK(editRate > 0, InvalidValue, "Edit rate non-greater than zero.");
    return editUnits * (editRate / currentEditRate);
}

bool isDataDefinitionEssence(Types::UniversalLabel const & dataDefinition,
                             Templates::SharedPtr<ContentStorageProfile> const & profile)
{
    if (Metadata::Structural::isEssenceDataDefinition(dataDefinition))
        return true;

    bool isEssence = false;
    return profile && profile->isEssenceDataDefinition(dataDefinition, &isEssence) == KNOWLEDGE_KNOWN && isEssence;
}

unsigned int key2TrackNumber(KLV::Key const & key) noexcept
{
    return Platform::readBigEndian<UInt32>(key.rawBuffer() + TRACK_NUMBER_PLACE);
}

KLV::Key trackNumber2Key(unsigned int trackNumber) noexcept
{
    static unsigned char const SYSTEM_ITEM_ELEMENT[16] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x05,
                                                          0x01, 0x01, 0x0D, 0x01, 0x03, 0x01};
    static unsigned char const ESSENCE_ELEMENT[16] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x02,
                                                      0x01, 0x01, 0x0D, 0x01, 0x03, 0x01};

    KLV::Key key(trackNumber >> 24 == SYSTEM_ITEM ? SYSTEM_ITEM_ELEMENT : ESSENCE_ELEMENT);
    for (int i = 0; i < 4; ++i)
        key[static_cast<int>(TRACK_NUMBER_PLACE) + i] = static_cast<unsigned char>(trackNumber >> (24 - 8 * i));
    return key;
}

UInt64 containerSize(Reader & reader, unsigned int bodySID)
{
    Partition * partition = reader.headerPartition();
    if (partition != nullptr && partition->partitionPack().bodySID() != bodySID)
        partition = reader.nextPartition(partition, bodySID);

    // Bodies lie behind each other in the file: the sum is no larger.
    UInt64 size = 0;
    for (; partition != nullptr; partition = reader.nextPartition(partition, bodySID))
        size += bodySize(reader, *partition);
    return size;
}

UInt64 containerSize(Reader2 & reader, unsigned int bodySID)
{
    Partition * const partition = lastBodyPartition(reader, bodySID);
    VANTRY_CHECK_TEXT(partition != nullptr, "lastBodyPartition != 0", InvalidFormat,
                      "Unable to find a partition with the requested BodySID.");

    UInt64 const body = partition->bodyAbsoluteOffset();
    UInt64 const end = endOfBody(reader, *partition);
    if (body > end)
        VANTRY_FAIL(InvalidFormat, numbersText("Expected body absolute offset of last body partition 0x", body,
                                               "is higher than begin of footer/next partition (0x", end));
    return saturatingSum(partition->partitionPack().bodyOffset(), end - body);
}

}}

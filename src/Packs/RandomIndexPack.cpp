#include "Packs/RandomIndexPack.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidElementLength.h"
#include "Exceptions/InvalidKey.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/NotFound.h"
#include "KLV/Packet.h"
#include "KLV/PacketHead.h"
#include "Templates/SafeCast.h"
#include "Types/UInt32.h"
#include "Types/UInt64.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace Vantry { namespace Packs {

namespace {

unsigned char const DEFAULT_BER_LENGTH = 4;
UInt64 const ENTRY_SIZE = 12;
UInt64 const PACK_LENGTH_SIZE = 4;

// The bytes of a key that a pack is recognised by when it is read.
std::size_t const KEY_BYTES_THAT_COUNT = 14;

}

KLV::Key const & RandomIndexPack::key()
{
    static constexpr unsigned char BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x05, 0x01, 0x01,
                                              0x0D, 0x01, 0x02, 0x01, 0x01, 0x11, 0x01, 0x00};
    static constexpr KLV::Key KEY(BYTES);
    return KEY;
}

RandomIndexPack::RandomIndexPack() : berLength_(DEFAULT_BER_LENGTH) {}

RandomIndexPack::RandomIndexPack(KLV::Packet & packet) : berLength_(packet.berLength())
{
    if (std::memcmp(packet.key().rawBuffer(), key().rawBuffer(), KEY_BYTES_THAT_COUNT) != 0)
        VANTRY_FAIL(InvalidKey, "Trying to create a RIP from a KLV with a invalid RIP Key.");

    KLV::Value & value = packet.value();
    while (value.remaining() > PACK_LENGTH_SIZE)
    {
        Types::UInt32 const bodySID(value);
        Types::UInt64 const offset(value);
        add(bodySID.value(), offset.value());
    }

    if (value.remaining() < PACK_LENGTH_SIZE)
        VANTRY_FAIL(InvalidLength, "Not enough data to read Pack");
    Types::UInt32 const packLength(value); // often wrong in real files
}

void RandomIndexPack::add(unsigned int bodySID, UInt64 offset)
{
    if (bodySIDs_.emplace(offset, bodySID).second)
        offsets_.emplace(bodySID, offset);
}

Templates::vector<UInt64> RandomIndexPack::find(unsigned int const & bodySID) const
{
    auto const entries = offsets_.equal_range(bodySID);
    if (entries.first == entries.second)
        VANTRY_FAIL(NotFound, ("BodySid not found: " + std::to_string(bodySID)).c_str());

    Templates::vector<UInt64> offsets;
    for (auto entry = entries.first; entry != entries.second; ++entry)
        offsets.push_back(entry->second);
    std::sort(offsets.begin(), offsets.end());
    return offsets;
}

unsigned int RandomIndexPack::size() const
{
    return static_cast<unsigned int>(bodySIDs_.size());
}

UInt64 RandomIndexPack::valueLength() const
{
    return bodySIDs_.size() * ENTRY_SIZE + PACK_LENGTH_SIZE;
}

UInt64 RandomIndexPack::serializedSize() const
{
    return key().serializedSize() + berLength_ + valueLength();
}

void RandomIndexPack::serialize(DataIO::DataSink & sink) const
{
    Types::UInt32 const packLength(Templates::SafeCast<UInt32, Exceptions::InvalidElementLength>(serializedSize()));

    KLV::writePacketHead(sink, key(), valueLength(), berLength_);
    for (auto const & entry : bodySIDs_)
    {
        Types::UInt32(entry.second).serialize(sink);
        Types::UInt64(entry.first).serialize(sink);
    }
    packLength.serialize(sink);
}

bool isRandomIndexPack(KLV::Key const & key)
{
    return key == RandomIndexPack::key();
}

}}

#include "PacketStreams.h"

#include "BigEndianText.h"
#include "Essence/AES3/S302M/Header.h"

#include <algorithm>
#include <fmt/format.h>
#include <optional>
#include <vector>

namespace Vantry { namespace Application {

namespace {

std::string_view const START_CODE("\0\0\1", 3);
std::size_t const PACKET_HEADER_SIZE = 6;

// Identifiers of packets.
unsigned char const PACK = 0xBA;
unsigned char const SYSTEM_HEADER = 0xBB;
unsigned char const FIRST_STREAM = 0xBC;
unsigned char const PADDING = 0xBE;
unsigned char const FIRST_VIDEO = 0xE0;
unsigned char const LAST_VIDEO = 0xEF;

// Of MPEG-2, with the stuffing that its last byte counts, and of MPEG-1.
std::size_t const PACK_SIZE = 14;
std::size_t const OLD_PACK_SIZE = 12;

std::size_t const S302M_HEADER_SIZE = Essence::AES3::S302M::Header::size();

std::optional<unsigned char> identifierAt(std::string_view head)
{
    if (head.size() < PACKET_HEADER_SIZE || head.substr(0, START_CODE.size()) != START_CODE)
        return std::nullopt;
    return static_cast<unsigned char>(head[START_CODE.size()]);
}

std::size_t packetSize(std::string_view head, unsigned char identifier)
{
    if (identifier != PACK)
        return PACKET_HEADER_SIZE + numberAt<UInt16>(head, 4);
    bool const isOld = (head[4] & 0xC0) == 0;
    if (isOld || head.size() < PACK_SIZE)
        return OLD_PACK_SIZE;
    return PACK_SIZE + (head[PACK_SIZE - 1] & 7u);
}

/// The size of a packet of sound with its header; nothing for what can't be one.
std::optional<std::size_t> soundPacketSize(UInt32 header)
{
    std::size_t const size = header >> 16;
    std::size_t const pairs = 1 + (header >> 14 & 3);
    std::size_t const bits = 16 + 4 * (header >> 4 & 3);
    std::size_t const bytesPerPair = 2 * (bits + 4) / 8;
    bool const isNone = bits > 24 || (header & 0xF) != 0 || size % (pairs * bytesPerPair) != 0;
    return isNone ? std::nullopt : std::optional<std::size_t>(S302M_HEADER_SIZE + size);
}

}

bool isPacketStream(std::string_view head)
{
    std::optional<unsigned char> const identifier = identifierAt(head);
    return identifier && (*identifier == PACK || *identifier == SYSTEM_HEADER ||
                          (*identifier >= FIRST_VIDEO && *identifier <= LAST_VIDEO));
}

std::string elementaryStreamsIn(std::string_view head)
{
    std::vector<unsigned char> streams;
    while (std::optional<unsigned char> const identifier = identifierAt(head))
    {
        bool const isStream = *identifier >= FIRST_STREAM && *identifier != PADDING;
        if (isStream && std::find(streams.begin(), streams.end(), *identifier) == streams.end())
            streams.push_back(*identifier);
        head.remove_prefix(std::min(packetSize(head, *identifier), head.size()));
    }
    return fmt::format("{:02X}h", fmt::join(streams, "h, "));
}

// One header alone may be chance, so another has to follow, or the end.
bool isS302M(std::string_view head)
{
    std::size_t packets = 0;
    while (head.size() >= S302M_HEADER_SIZE)
    {
        std::optional<std::size_t> const size = soundPacketSize(numberAt<UInt32>(head, 0));
        if (!size)
            return false;
        packets += *size > S302M_HEADER_SIZE ? 1 : 0;
        if (*size == head.size())
            return packets != 0;
        head.remove_prefix(std::min(*size, head.size()));
    }
    return packets > 1;
}

}}

#pragma once

#include "Platform/Integers.h"

#include <fmt/format.h>

namespace Vantry {
namespace KLV {
class Packet;
}

namespace Application {

class PackFacts;

/// How packets are shown, a line each. The lines are appended to the text.
class PacketLines
{
public:
    virtual ~PacketLines() = default;

    /// A packet, with the facts of its value if there are any; `cut` when the
    /// input ends inside it.
    virtual void packet(fmt::memory_buffer & text, KLV::Packet const & packet, PackFacts const * facts,
                        bool cut) const = 0;

    /// A stretch of bytes that belong to no packet.
    virtual void gap(fmt::memory_buffer & text, UInt64 offset, UInt64 size) const = 0;
};

/// Columns for people: offset, key, length, name.
class PlainPacketLines : public PacketLines
{
public:
    void packet(fmt::memory_buffer & text, KLV::Packet const & packet, PackFacts const * facts,
                bool cut) const override;
    void gap(fmt::memory_buffer & text, UInt64 offset, UInt64 size) const override;
};

/// One JSON object a line.
class JsonPacketLines : public PacketLines
{
public:
    void packet(fmt::memory_buffer & text, KLV::Packet const & packet, PackFacts const * facts,
                bool cut) const override;
    void gap(fmt::memory_buffer & text, UInt64 offset, UInt64 size) const override;
};

}
}

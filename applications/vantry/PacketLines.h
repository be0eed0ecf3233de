#pragma once

#include "Platform/Integers.h"

#include <fmt/format.h>

namespace Vantry {
namespace KLV {
class Packet;
}

namespace Application {

class PackFacts;
class SetNames;

/// How packets are shown, a line each. The lines are appended to the text.
class PacketLines
{
public:
    /// The names are lent.
    explicit PacketLines(SetNames const & sets) : sets_(sets) {}

    virtual ~PacketLines() = default;

    /// A packet, with the facts of its value if there are any; `cut` when the
    /// input ends inside it.
    virtual void packet(fmt::memory_buffer & text, KLV::Packet const & packet, PackFacts const * facts,
                        bool cut) const = 0;

    /// A stretch of bytes that belong to no packet.
    virtual void gap(fmt::memory_buffer & text, UInt64 offset, UInt64 size) const = 0;

protected:
    SetNames const & sets_;
};

/// Columns for people: offset, key, length, name.
class PlainPacketLines : public PacketLines
{
public:
    using PacketLines::PacketLines;

    void packet(fmt::memory_buffer & text, KLV::Packet const & packet, PackFacts const * facts,
                bool cut) const override;
    void gap(fmt::memory_buffer & text, UInt64 offset, UInt64 size) const override;
};

/// One JSON object a line.
class JsonPacketLines : public PacketLines
{
public:
    using PacketLines::PacketLines;

    void packet(fmt::memory_buffer & text, KLV::Packet const & packet, PackFacts const * facts,
                bool cut) const override;
    void gap(fmt::memory_buffer & text, UInt64 offset, UInt64 size) const override;
};

}
}

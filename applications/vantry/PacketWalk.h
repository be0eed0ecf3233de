#pragma once

#include "Platform/Integers.h"

namespace Vantry {
namespace KLV {
class Packet;
}

namespace Application {

class Input;

/// Is told what an input consists of. Packets and gaps come in file order and
/// leave no byte out.
class PacketListener
{
public:
    virtual ~PacketListener() = default;

    /// A packet whose value may be read now. What is left of it is passed
    /// over, and `packet` follows.
    virtual void value(KLV::Packet & packet) = 0;

    /// A packet, with as many bytes of its value as there are. Fewer than its
    /// length mean that the input ends inside it.
    virtual void packet(KLV::Packet const & packet, UInt64 bytesThere) = 0;

    /// A stretch of bytes that belong to no packet. With `unreadableLength`
    /// there is a key among them whose length field can't be decoded.
    virtual void gap(UInt64 offset, UInt64 size, bool unreadableLength) = 0;

    /// Whether the walk may end; asked behind each packet that was told of.
    virtual bool isSatisfied() const { return false; }

    /// Whether it need not be told of fill items.
    virtual bool ignoresFill() const { return false; }
};

/// Takes an input packet by packet, over whatever lies between them. The
/// result is the same for a file and for a stream.
///
/// \throws Exceptions::IOError when the medium fails.
void walkPackets(Input & input, PacketListener & listener);

}
}

#pragma once

#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "support/BytesSource.h"

namespace Vantry { namespace Tests {

/// A packet whose length field has four bytes.
inline Bytes packet(KLV::Key const & key, Bytes const & value)
{
    Bytes bytes(key.rawBuffer(), key.rawBuffer() + key.size());
    bytes.push_back(0x83);
    for (int shift : {16, 8, 0})
        bytes.push_back(static_cast<unsigned char>(value.size() >> shift));
    return bytes + value;
}

/// The first packet in a run of bytes, ready to be read.
class BytesPacket
{
public:
    explicit BytesPacket(Bytes bytes) :
        source_(std::move(bytes)), reader_(source_), packet_(reader_.nextKLV(skipped_, 0))
    {
    }

    KLV::Packet & operator*() { return *packet_; }

private:
    BytesSource source_;
    KLV::Reader reader_;
    UInt64 skipped_ = 0;
    Templates::auto_ptr<KLV::Packet> packet_;
};

}}

#pragma once

#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "support/BytesSource.h"

namespace Vantry { namespace Tests {

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

#pragma once

#include "DataIO/SliceReader.h"

#include <string>

namespace Vantry { namespace Application {

/// Passes a stream of sound in packets (SMPTE 302M) on, and fails where it ends
/// within one, which is else taken for a short packet.
class WholeSoundPackets : public DataIO::SliceSource
{
public:
    explicit WholeSoundPackets(Templates::SharedPtr<DataIO::SliceSource> packets) :
        packets_(std::move(packets)), nextPacket_(0)
    {
    }

    /// \throws Exceptions::InvalidFormat that tells where the stream is cut.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    UInt64 absoluteOffset() const override { return packets_.absoluteOffset(); }
    bool endOfStream() const override { return packets_.endOfStream(); }
    UInt64 skip(UInt64 howMuch) override;

private:
    void follow(DataIO::Slice const & slice, UInt64 offset);

    DataIO::SliceReader packets_;
    UInt64 nextPacket_;

    // What was read of the size of the packet there.
    std::string size_;
};

}}

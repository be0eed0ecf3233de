#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace Essence { namespace AES3 {

class ChannelStatus;

/// Builds a channel status block from the bits of a channel's sub-frames. The
/// block is lent and outlives the loader.
class VANTRY_EXPORT ChannelStatusLoader
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit ChannelStatusLoader(ChannelStatus & channelStatus) noexcept;

    /// Takes the bit of one sub-frame; `framing` tells that a block begins
    /// with it. Bits ahead of the first block are ignored, and so are those
    /// behind it.
    ///
    /// \throws Exceptions::InvalidFormat "Framing bit set during a frame."
    ///         where a block begins within the block.
    void push(bool framing, bool value);

    /// Whether a block has begun, whole or not.
    bool isRecording() const noexcept { return recording_; }

    /// Whether all 192 bits are there.
    bool isComplete() const noexcept { return complete_; }

    /// Waits for a block anew.
    void reset() noexcept;

private:
    ChannelStatus * channelStatus_;
    unsigned int position_;
    bool recording_;
    bool complete_;
};

}}}

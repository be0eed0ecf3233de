#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace Essence { namespace AES3 {

class ChannelStatus;

/// Gives the bits of a channel status block for a channel's sub-frames, round
/// and round. The block is lent and outlives the dumper.
class VANTRY_EXPORT ChannelStatusDumper
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit ChannelStatusDumper(ChannelStatus const & channelStatus) noexcept;

    /// The next of the 192 bits; `framing` is set for the first of them.
    void pop(bool & framing, bool & value) noexcept;

    /// Goes back to the first bit.
    void reset() noexcept;

private:
    ChannelStatus const * channelStatus_;
    unsigned int position_;
};

}}}

#include "Essence/AES3/ChannelStatusDumper.h"

#include "Essence/AES3/ChannelStatus.h"

namespace Vantry { namespace Essence { namespace AES3 {

ChannelStatusDumper::ChannelStatusDumper(ChannelStatus const & channelStatus) noexcept :
    channelStatus_(&channelStatus), position_(0)
{
}

void ChannelStatusDumper::pop(bool & framing, bool & value) noexcept
{
    framing = position_ == 0;
    value = channelStatus_->bit(position_);
    position_ = (position_ + 1) % ChannelStatusDataFormat::BITS;
}

void ChannelStatusDumper::reset() noexcept
{
    position_ = 0;
}

}}}

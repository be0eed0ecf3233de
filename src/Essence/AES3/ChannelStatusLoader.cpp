#include "Essence/AES3/ChannelStatusLoader.h"

#include "Essence/AES3/ChannelStatus.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"

namespace Vantry { namespace Essence { namespace AES3 {

ChannelStatusLoader::ChannelStatusLoader(ChannelStatus & channelStatus) noexcept :
    channelStatus_(&channelStatus), position_(0), recording_(false), complete_(false)
{
}

void ChannelStatusLoader::push(bool framing, bool value)
{
    VANTRY_CHECK(!(recording_ && !complete_ && framing), InvalidFormat, "Framing bit set during a frame.");

    recording_ = recording_ || framing;
    if (!recording_ || complete_)
        return;

    channelStatus_->bit(position_++, value);
    complete_ = position_ == ChannelStatusDataFormat::BITS;
}

void ChannelStatusLoader::reset() noexcept
{
    *this = ChannelStatusLoader(*channelStatus_);
}

}}}

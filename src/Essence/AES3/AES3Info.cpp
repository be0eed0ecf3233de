#include "Essence/AES3/AES3Info.h"

#include <tuple>

namespace Vantry { namespace Essence { namespace AES3 {

namespace {

auto fieldsOf(AES3Info const & info) noexcept
{
    return std::tie(info.bitsPerSample, info.channels, info.bytesPerSampleGroup, info.samplingFrequency,
                    info.lockIndication, info.useOfAuxiliarySampleBits, info.channelMode, info.audioSignalEmphasis,
                    info.channelStatus, info.dataType);
}

}

bool AES3Info::operator==(AES3Info const & other) const noexcept
{
    return fieldsOf(*this) == fieldsOf(other);
}

bool AES3Info::operator<(AES3Info const & other) const noexcept
{
    return fieldsOf(*this) < fieldsOf(other);
}

}}}

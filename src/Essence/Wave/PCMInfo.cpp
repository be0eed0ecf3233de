#include "Essence/Wave/PCMInfo.h"

#include <tuple>

namespace Vantry { namespace Essence { namespace Wave {

namespace {

auto fieldsOf(PCMInfo const & info) noexcept
{
    return std::tie(info.bitsPerSample, info.validBitsPerSample, info.numberOfChannels, info.samplingFrequency);
}

}

bool PCMInfo::operator==(PCMInfo const & other) const noexcept
{
    return fieldsOf(*this) == fieldsOf(other);
}

bool PCMInfo::operator<(PCMInfo const & other) const noexcept
{
    return fieldsOf(*this) < fieldsOf(other);
}

}}}

#pragma once

#include "GenericContainer/Timecode12M.h"
#include "Platform/Export.h"

namespace Vantry { namespace GenericContainer {

/// A date/time stamp (SMPTE 331M, 7.1) that holds a time code.
struct Timecode331M
{
    /// Says that a time code follows.
    static constexpr unsigned char TIME_CODE = 0x81;

    unsigned char kind = 0;
    Timecode12M timecode;
    unsigned char reserved[8] = {};
};

/// Writes a whole stamp, with writeTimecode12M.
VANTRY_EXPORT void writeTimecode331M(Timecode331M & destination, Utils::TimeCode const & timeCode);

}}

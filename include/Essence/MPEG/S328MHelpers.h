#pragma once

#include "Platform/Export.h"
#include "Templates/Rational.h"

namespace Vantry {
namespace Utils {
class TimeCode;
}

namespace Essence { namespace MPEG {

/// The time code in the user data of MPEG-2 video (SMPTE 328M). Its 64 bits
/// are those of SMPTE 12M, in BCD, and are spread so that no start code comes
/// about; m is a marker bit of 1:
///
///     V    frames, seconds, minutes, hours: a byte each; 4 of binary groups
///
///     0    V 63-56                          5    V 25-18
///     1    V 55-48                          6    V 17-16, m, V 15-11
///     2    m, V 47-41                       7    V 10-3
///     3    V 40-33                          8    V 2-0, m, four bits of 0
///     4    V 32, m, V 31-26
struct S328M_TIME_CODE
{
    unsigned char bytes[9] = {};
};

namespace S328MHelpers {

/// Writes a time code, with binary groups of 0.
///
/// \param mode  where the flags stand. True, at 24, 30 and 60 frames per
///              second: drop frame in bit 6 of the frames, field phase in bit
///              7 of the seconds. False, at 25 and 50: field phase in bit 7 of
///              the hours.
VANTRY_EXPORT S328M_TIME_CODE encodeS328MTimecode(Utils::TimeCode const & timeCode, bool mode);

/// Reads a time code. Marker bits and binary groups don't matter.
///
/// \param rate  frames per second, up to 255; that of the time code is rounded
///              up
/// \param mode  as above
/// \throws Exceptions::InvalidValue for digits or flags that are no time code
///         at this rate, or a rate that none can have.
VANTRY_EXPORT Utils::TimeCode decodeS328MTimecode(S328M_TIME_CODE const & code, Templates::Rational<int> const & rate,
                                                  bool mode);

}

}}
}

#pragma once

#include "Platform/Export.h"
#include "Templates/Rational.h"

namespace Vantry {
namespace Utils {
class TimeCode;
}

namespace Essence { namespace MPEG {

/// The time code in the user data of MPEG-2 video (SMPTE 328M).
///
/// It is a value of 64 bits as in SMPTE 12M: frames, seconds, minutes and
/// hours, a byte of BCD each, and four bytes of binary groups. Four times 16
/// bits of it, the highest first, have a marker bit of 1 behind them, so that
/// no start code comes about; four bits of 0 follow.
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

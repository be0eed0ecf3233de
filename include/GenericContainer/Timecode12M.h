#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Utils {
class TimeCode;
}

namespace GenericContainer {

/// A time code and its user bits as SMPTE 331M stores those of SMPTE 12M:
///
///           7             6      5, 4           3 to 0
///     0     colour frame  drop   frame tens     frame units
///     1     a             second tens           second units
///     2     b             minute tens           minute units
///     3     c             flag1  hour tens      hour units
///     4..7  binary groups 1, 3, 5, 7            groups 2, 4, 6, 8
///
/// At 25 and 50 frames per second a is flag0 of the binary groups, b flag2 and
/// c the field phase; at other rates they are field phase, flag0 and flag2.
struct Timecode12M
{
    unsigned char bytes[8] = {};
};

/// Writes a time code; without user bits, flags and field phase unless it is a
/// Utils::TimeCodeExtended. Of frames above 39 it writes what has room.
VANTRY_EXPORT void writeTimecode12M(Timecode12M & destination, Utils::TimeCode const & timeCode);

/// Reads digits and drop frame.
///
/// \param frameRate  rounded frames per second
/// \throws Exceptions::InvalidValue for digits that are no time code at this
///         rate.
VANTRY_EXPORT Utils::TimeCode readTimecode12M(Timecode12M const & source, unsigned char frameRate);

}
}

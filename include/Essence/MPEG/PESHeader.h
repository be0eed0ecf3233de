#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry {

namespace DataIO {
class SliceReader;
}

/// MPEG streams in packets (ISO/IEC 11172-1 and 13818-1), and the time code
/// that goes with them.
namespace Essence { namespace MPEG {

/// What each packet of an elementary stream (PES) begins with: 6 bytes.
struct header_PACKET
{
    /// 00 00 01 and the stream's identifier.
    unsigned char startCode[4] = {};

    /// Bytes that follow, high byte first; 0 where that is left open.
    unsigned char packetLength[2] = {};
};

/// Reads the optional header of a packet, of MPEG-1 or MPEG-2 form, up to the
/// first byte of its payload, and returns how many bytes it had:
///
///     MPEG-1  stuffing (FFh), "01" + 14 bits on the buffer, then
///             0Fh, or a time stamp of 5 bytes ("0010"), or two ("0011")
///     MPEG-2  "10" + 6 bits, flags, header length, then that many bytes:
///             a time stamp or two, and more that is passed over
///
/// \param reader  stands behind the first 6 bytes of the packet
/// \param packet  those bytes: a header that claims more than its packet has
///                ends with it. Null, or a length of 0, sets no end.
/// \param pts     set to the presentation time stamp, in ticks of 90 kHz;
///                stays where there is none, or the stream ends in it
/// \throws Exceptions::IOError when the medium fails.
VANTRY_EXPORT unsigned int readHeader(DataIO::SliceReader & reader, header_PACKET const * packet, UInt64 & pts);

}}
}

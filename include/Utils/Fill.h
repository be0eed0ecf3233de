#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}

/// KLV fill items, and the grid that the parts of a file are aligned to by
/// them (SMPTE 377M, 5.4).
namespace Utils {

/// Bytes of fill that are needed at `position` to reach a grid line; none on
/// a grid line. A gap too small for the fill is closed at a later line.
///
/// \param grid         bytes between grid lines; 0 counts as 1
/// \param position     bytes from a grid line that came before
/// \param minimumSize  bytes that a fill takes at least
VANTRY_EXPORT UInt64 alignBytes(unsigned int grid, UInt64 position, unsigned int minimumSize);

/// Writes a fill item of `size` bytes in all: the key KLV::fillItemKey(), a
/// length field of `berLength` bytes, and zeros.
///
/// \throws Exceptions::InvalidValue for a `berLength` of 0 and for a size
///         that can't hold key and length field.
/// \throws Exceptions::InvalidFormat for a `berLength` above 9, and for one
///         of more than one byte that can't hold the length. Nothing is
///         written then.
/// \throws Exceptions::IOError when the sink fails.
VANTRY_EXPORT void writeFillKLV(DataIO::DataSink & sink, UInt64 size, unsigned char berLength);

/// Writes the fill item that takes the sink to a grid line, if it isn't on
/// one. Lines are counted from its position 0.
///
/// \param kagSize    bytes between grid lines; 0 counts as 1
/// \param berLength  bytes of the length field, 1 to 9
///
/// \throws Exceptions as writeFillKLV.
VANTRY_EXPORT void kagAlign(DataIO::DataSink & sink, unsigned int kagSize, unsigned char berLength);

}
}

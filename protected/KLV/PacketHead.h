#pragma once

#include "KLV/Key.h"
#include "Platform/Integers.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}

namespace KLV {

/// Writes key and length field of a packet whose value of `length` bytes
/// follows.
///
/// \throws Exceptions::InvalidFormat as ByteCoders::codeBER, with nothing
///         written.
/// \throws Exceptions::IOError when the sink fails.
void writePacketHead(DataIO::DataSink & sink, Key const & key, UInt64 length, unsigned char berLength);

}
}

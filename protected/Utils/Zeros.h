#pragma once

#include "Platform/Integers.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}

namespace Utils {

/// Writes that many zero bytes.
///
/// \throws Exceptions::IOError when the sink fails.
void writeZeros(DataIO::DataSink & sink, UInt64 howMany);

}
}

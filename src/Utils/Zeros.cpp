#include "Utils/Zeros.h"

#include "DataIO/DataSink.h"

#include <algorithm>

namespace Vantry { namespace Utils {

namespace {

UInt64 const ZEROS_SIZE = 65536;
constexpr unsigned char ZEROS[ZEROS_SIZE] = {};

}

void writeZeros(DataIO::DataSink & sink, UInt64 howMany)
{
    while (howMany != 0)
    {
        UInt64 const chunk = std::min(howMany, ZEROS_SIZE);
        sink.write(ZEROS, chunk);
        howMany -= chunk;
    }
}

}}

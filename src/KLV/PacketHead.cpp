#include "KLV/PacketHead.h"

#include "ByteCoders/BER.h"
#include "DataIO/DataSink.h"

#include <cstring>

namespace Vantry { namespace KLV {

namespace {

unsigned int const MAXIMUM_BER_SIZE = 9;

}

void writePacketHead(DataIO::DataSink & sink, Key const & key, UInt64 length, unsigned char berLength)
{
    unsigned char head[16 + MAXIMUM_BER_SIZE];
    std::memcpy(head, key.rawBuffer(), key.size());
    ByteCoders::codeBER(length, berLength, head + key.size());
    sink.write(head, UInt64(key.size()) + berLength);
}

}}

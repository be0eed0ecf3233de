#include "Utils/Fill.h"

#include "DataIO/DataSink.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "KLV/FillItem.h"
#include "KLV/PacketHead.h"
#include "Utils/Zeros.h"

namespace Vantry { namespace Utils {

namespace {

unsigned int const KEY_SIZE = 16;

}

UInt64 alignBytes(unsigned int grid, UInt64 position, unsigned int minimumSize)
{
    UInt64 const step = grid == 0 ? 1 : grid;
    UInt64 const behindLine = position % step;
    if (behindLine == 0)
        return 0;

    UInt64 const gap = step - behindLine;
    if (gap >= minimumSize)
        return gap;
    return gap + (minimumSize + step - 1) / step * step;
}

void writeFillKLV(DataIO::DataSink & sink, UInt64 size, unsigned char berLength)
{
    UInt64 const headSize = KEY_SIZE + berLength;
    if (berLength == 0 || size < headSize)
        VANTRY_FAIL(InvalidValue, "Is not possible to make a KLV Fill item which is less than 17 bytes in length");

    KLV::writePacketHead(sink, KLV::fillItemKey(), size - headSize, berLength);
    writeZeros(sink, size - headSize);
}

void kagAlign(DataIO::DataSink & sink, unsigned int kagSize, unsigned char berLength)
{
    UInt64 const size = alignBytes(kagSize, sink.absoluteOffset(), KEY_SIZE + berLength);
    if (size != 0)
        writeFillKLV(sink, size, berLength);
}

}}

#include "MXFIO/ElementEssenceReaderClipWrap.h"

#include "MXFIO/ClipBytes.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementEditUnit.h"

#include <algorithm>

namespace Vantry { namespace MXFIO {

ElementEssenceReaderClipWrap::ElementEssenceReaderClipWrap(ContentStorageReader & reader, Clip const & clip) :
    BaseElementEssenceReader(reader, clip), isDelivered_(false)
{
}

ElementEssenceReaderClipWrap::~ElementEssenceReaderClipWrap() = default;

bool ElementEssenceReaderClipWrap::isAtEnd() const
{
    return isDelivered_ || BaseElementEssenceReader::isAtEnd();
}

bool ElementEssenceReaderClipWrap::nextElement(UInt64 searchLimit, ElementEditUnit & unit)
{
    unit = ElementEditUnit();
    if (isAtEnd() || !reader().seek(0))
        return false;

    unit.packet = nextPacket(searchLimit);
    if (!unit.packet)
        return false;
    trim(unit);
    isDelivered_ = true;
    return true;
}

bool ElementEssenceReaderClipWrap::moveTo(Int64 containerEditUnit)
{
    Int64 const end = ClipBytes(reader()).end();
    if (containerEditUnit < 0 || (end >= 0 && containerEditUnit > end))
        return false;
    isDelivered_ = false;
    return true;
}

// Leaves out what lies ahead of the position and behind the end.
void ElementEssenceReaderClipWrap::trim(ElementEditUnit & unit)
{
    ClipBytes const clip(reader());
    Int64 const start = nextEditUnit();
    Int64 const stored = clip.end();
    Int64 const end = endEditUnit() >= 0 && (stored < 0 || endEditUnit() < stored) ? endEditUnit() : stored;

    unit.trackID = trackID();
    unit.editUnit = start;
    unit.elementSize = unit.packet->klvLength();
    unit.packetBytes = unit.packet->length();

    UInt64 behind = unit.packetBytes;
    clip.ahead(start, unit.packetBytes, unit.headBytes);
    if (end >= 0)
        clip.ahead(end, unit.packetBytes, behind);
    unit.tailBytes = unit.packetBytes - std::max(behind, unit.headBytes);
    if (end > start)
    {
        unit.duration = Templates::Rational<Int64>(end - start) / containerRate();
        nextEditUnit(end);
    }
}

}}

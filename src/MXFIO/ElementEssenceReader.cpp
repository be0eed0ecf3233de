#include "MXFIO/ElementEssenceReader.h"

#include "Exceptions/Check.h"
#include "Exceptions/KeyNotFound.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/Seeker.h"

namespace Vantry { namespace MXFIO {

namespace {

unsigned int indexOf(ContentStorageReader & reader, unsigned int trackNumber)
{
    unsigned int index = 0;
    VANTRY_CHECK_TEXT(reader.seeker().elementIndex(trackNumber, index), "it != elements_.end ()", KeyNotFound,
                      "Track number not in Essence container");
    return index;
}

}

ElementEssenceReader::ElementEssenceReader(ContentStorageReader & reader, Clip const & clip) :
    BaseElementEssenceReader(reader, clip),
    elementIndex_(indexOf(reader, clip.trackNumber)),
    unitDuration_(Templates::Rational<Int64>(1) / containerRate())
{
}

ElementEssenceReader::~ElementEssenceReader() = default;

bool ElementEssenceReader::nextElement(UInt64 searchLimit, ElementEditUnit & unit)
{
    unit = ElementEditUnit();
    if (isAtEnd() || (!isReached() && !moveTo(nextEditUnit())))
        return false;

    // Look-ups go first: they may read, and would drop what is buffered.
    describe(unit);
    unit.packet = nextPacket(searchLimit);
    if (!unit.packet)
    {
        unit = ElementEditUnit();
        return false;
    }

    unit.packetBytes = unit.packet->length();
    if (unit.elementSize == 0)
        unit.elementSize = unit.packet->klvLength();
    nextEditUnit(nextEditUnit() + 1);
    return true;
}

bool ElementEssenceReader::moveTo(Int64 containerEditUnit)
{
    return reader().fineSeek(containerEditUnit, trackNumber()) || reader().seek(containerEditUnit);
}

// Whether the container stands ahead of the element that is next.
bool ElementEssenceReader::isReached() const
{
    unsigned int const next = reader().nextElementIndex();
    Int64 const entered = reader().editUnit() - (next != 0 ? 1 : 0);
    return entered == nextEditUnit() && next <= elementIndex_;
}

void ElementEssenceReader::describe(ElementEditUnit & unit)
{
    unit.trackID = trackID();
    unit.editUnit = nextEditUnit();
    unit.duration = unitDuration_;
    unit.elementSize = seeker().elementSize(nextEditUnit(), trackNumber());
    if (IndexTables::IndexEntry const * const entry = seeker().indexEntry(nextEditUnit()))
    {
        unit.flags = entry->flags();
        unit.temporalOffset = entry->temporalOffset();
        unit.keyFrameOffset = entry->keyFrameOffset();
    }
}

}}

#include "MXFIO/ElementEssenceReaderClipWrapEmulated.h"

#include "DataIO/RandomAccessDataSource.h"
#include "MXFIO/ClipBytes.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/Reader.h"

#include <algorithm>

namespace Vantry { namespace MXFIO {

// The clip's packet, as it was found.
class ElementEssenceReaderClipWrapEmulated::Packet
{
public:
    VANTRY_CLASS_ALLOCATION

    Packet(KLV::Packet const & packet, ContentStorageReader & reader) :
        length(packet.length()),
        clip(reader),
        head_(packet),
        source_(reader.reader().source()),
        start_(source_.absoluteOffset())
    {
    }

    // Bytes of the clip that the file has from a place on.
    UInt64 available(UInt64 offset) const
    {
        UInt64 const size = source_.absoluteOffset() + source_.remaining() - start_;
        return std::min(size, length) - std::min({offset, size, length});
    }

    Templates::auto_ptr<KLV::Packet> piece(UInt64 offset, UInt64 size) const
    {
        source_.seek(start_ + offset);
        return Templates::auto_ptr<KLV::Packet>(
            new KLV::Packet(head_.key, head_.berLength, size, source_, head_.keyAbsoluteOffset));
    }

    UInt64 const length;
    ClipBytes const clip;

private:
    struct Head
    {
        explicit Head(KLV::Packet const & packet) :
            key(packet.key()), berLength(packet.berLength()), keyAbsoluteOffset(packet.keyAbsoluteOffset())
        {
        }

        KLV::Key key;
        unsigned char berLength;
        UInt64 keyAbsoluteOffset;
    };

    Head const head_;
    DataIO::RandomAccessDataSource & source_;
    UInt64 const start_;
};

ElementEssenceReaderClipWrapEmulated::ElementEssenceReaderClipWrapEmulated(ContentStorageReader & reader,
                                                                           Clip const & clip) :
    BaseElementEssenceReader(reader, clip), packet_(nullptr), samplePosition_(firstTrackEditUnit())
{
}

ElementEssenceReaderClipWrapEmulated::~ElementEssenceReaderClipWrapEmulated()
{
    delete packet_;
}

Int64 ElementEssenceReaderClipWrapEmulated::position() const
{
    return samplePosition_ - firstTrackEditUnit();
}

bool ElementEssenceReaderClipWrapEmulated::isAtEnd() const
{
    return endTrackEditUnit() >= 0 && samplePosition_ >= endTrackEditUnit();
}

bool ElementEssenceReaderClipWrapEmulated::nextElement(UInt64 searchLimit, ElementEditUnit & unit)
{
    unit = ElementEditUnit();
    return !isAtEnd() && fetch(searchLimit) && cut(unit);
}

bool ElementEssenceReaderClipWrapEmulated::moveTo(Int64 containerEditUnit)
{
    Int64 const end = ClipBytes(reader()).end();
    if (containerEditUnit < 0 || (end >= 0 && containerEditUnit > end))
        return false;
    samplePosition_ = trackEditUnitAt(containerEditUnit);
    return true;
}

void ElementEssenceReaderClipWrapEmulated::moveToEnd()
{
    BaseElementEssenceReader::moveToEnd();
    samplePosition_ = endTrackEditUnit();
}

// Finds the clip, once.
bool ElementEssenceReaderClipWrapEmulated::fetch(UInt64 searchLimit)
{
    if (packet_ != nullptr)
        return true;
    if (!reader().seek(0))
        return false;

    Templates::auto_ptr<KLV::Packet> const packet = nextPacket(searchLimit);
    if (packet)
        packet_ = new Packet(*packet, reader());
    return packet_ != nullptr;
}

// Gives the piece that is next; false when the clip has no more.
bool ElementEssenceReaderClipWrapEmulated::cut(ElementEditUnit & unit)
{
    ClipBytes const & clip = packet_->clip;
    UInt64 start = 0;
    UInt64 end = 0;
    Int64 const first = nearestUnit(samplePosition_);
    Int64 const behind = nearestUnit(samplePosition_ + 1);
    if (!clip.ahead(first, packet_->length, start) || !clip.ahead(behind, packet_->length, end) ||
        packet_->available(start) == 0)
        return false;

    unit.trackID = trackID();
    unit.editUnit = first;
    unit.duration = Templates::Rational<Int64>(1) / trackRate();
    unit.packetBytes = std::max(end, start) - start;
    unit.packet = packet_->piece(start, unit.packetBytes);
    unit.elementSize = unit.packetBytes;
    nextEditUnit(behind);
    ++samplePosition_;
    return true;
}

}}

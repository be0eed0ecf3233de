#include "MXFIO/BaseElementEssenceReader.h"

#include "KLV/Packet.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementKey.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/Seeker.h"
#include "MXFIO/UnitScale.h"

#include <limits>
#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

using Ratio = Templates::Rational<Int64>;

Int64 const UNKNOWN = -1;

Int64 cappedSum(Int64 left, Int64 right)
{
    Int64 sum = 0;
    return __builtin_add_overflow(left, right, &sum) ? std::numeric_limits<Int64>::max() : sum;
}

// Without a rate of its own the container goes with the track.
Ratio rateOfContainer(ContentStorageReader const & reader, Ratio const & trackRate)
{
    Ratio const rate = reader.unitRate();
    return rate > 0 ? rate : trackRate;
}

}

BaseElementEssenceReader::BaseElementEssenceReader(ContentStorageReader & reader, Clip const & clip) :
    reader_(reader),
    clip_(clip),
    containerRate_(rateOfContainer(reader, clip.trackRate)),
    ratio_(containerRate_ / clip.trackRate),
    key_(reader.seeker().elementKey(clip.trackNumber)),
    nextEditUnit_(positionFor(firstTrackEditUnit())),
    endEditUnit_(clip.duration < 0 ? UNKNOWN : UnitScale(ratio_).ceiling(endTrackEditUnit()))
{
}

BaseElementEssenceReader::~BaseElementEssenceReader() = default;

unsigned int BaseElementEssenceReader::trackNumber() const
{
    return clip_.trackNumber;
}

unsigned int BaseElementEssenceReader::trackID() const
{
    return clip_.trackID;
}

Metadata::Structural::FileDescriptor const * BaseElementEssenceReader::descriptor() const
{
    return clip_.descriptor;
}

Ratio BaseElementEssenceReader::trackRate() const
{
    return clip_.trackRate;
}

Ratio BaseElementEssenceReader::containerRate() const
{
    return containerRate_;
}

Int64 BaseElementEssenceReader::startOffset() const
{
    return clip_.startOffset;
}

Int64 BaseElementEssenceReader::origin() const
{
    return clip_.origin;
}

Int64 BaseElementEssenceReader::duration() const
{
    return clip_.duration;
}

Int64 BaseElementEssenceReader::position() const
{
    return trackEditUnitAt(nextEditUnit_) - firstTrackEditUnit();
}

bool BaseElementEssenceReader::isAtEnd() const
{
    return endEditUnit_ >= 0 && nextEditUnit_ >= endEditUnit_;
}

bool BaseElementEssenceReader::setPosition(Int64 position)
{
    if (position < 0 || (clip_.duration >= 0 && position > clip_.duration))
        return false;
    if (position == clip_.duration)
    {
        moveToEnd();
        return true;
    }

    Int64 target = positionFor(cappedSum(firstTrackEditUnit(), position));
    if (seeker().temporalReorderingTrack() == key2TrackNumber(key_))
        target += seeker().temporalOffset(target);
    return seek(target);
}

bool BaseElementEssenceReader::setPosition(Ratio & seconds)
{
    if (seconds < Ratio(0))
        return false;

    Ratio const editUnits = seconds2EditUnits(seconds, clip_.trackRate);
    Int64 const position = editUnits.numerator() / editUnits.denominator();
    Ratio const rest = editUnits2Seconds(editUnits - Ratio(position), clip_.trackRate);
    bool const isReached = setPosition(position);
    if (isReached)
        seconds = rest;
    return isReached;
}

bool BaseElementEssenceReader::seek(Int64 containerEditUnit)
{
    bool const isReached = moveTo(containerEditUnit);
    nextEditUnit_ = isReached ? containerEditUnit : reader_.editUnit();
    return isReached;
}

Ratio BaseElementEssenceReader::editUnitsToSeconds(Ratio const & editUnits) const
{
    return editUnits2Seconds(editUnits, clip_.trackRate);
}

Ratio BaseElementEssenceReader::secondsToEditUnits(Ratio const & seconds) const
{
    return seconds2EditUnits(seconds, clip_.trackRate);
}

void BaseElementEssenceReader::moveToEnd()
{
    nextEditUnit_ = endEditUnit_;
}

Templates::auto_ptr<KLV::Packet> BaseElementEssenceReader::nextPacket(UInt64 searchLimit)
{
    Templates::auto_ptr<KLV::Packet> packet = reader_.nextKLV(searchLimit);
    while (packet && !isKeyOf(key_, packet->key()))
    {
        reader_.discardKLVPacket(std::move(packet));
        packet = reader_.nextKLV(searchLimit);
    }
    return packet;
}

Seeker & BaseElementEssenceReader::seeker() const
{
    return reader_.seeker();
}

Int64 BaseElementEssenceReader::firstTrackEditUnit() const
{
    return cappedSum(clip_.origin, clip_.startOffset);
}

Int64 BaseElementEssenceReader::endTrackEditUnit() const
{
    return clip_.duration < 0 ? UNKNOWN : cappedSum(firstTrackEditUnit(), clip_.duration);
}

Int64 BaseElementEssenceReader::positionFor(Int64 trackEditUnit) const
{
    return UnitScale(ratio_).floor(trackEditUnit);
}

Int64 BaseElementEssenceReader::nearestUnit(Int64 trackEditUnit) const
{
    return UnitScale(ratio_).nearest(trackEditUnit);
}

Int64 BaseElementEssenceReader::trackEditUnitAt(Int64 containerEditUnit) const
{
    return UnitScale(Ratio(1) / ratio_).ceiling(containerEditUnit);
}

}}

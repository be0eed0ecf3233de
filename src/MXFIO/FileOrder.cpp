#include "MXFIO/FileOrder.h"

#include "KLV/KeyPredicates.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/ElementReader.h"
#include "MXFIO/EssenceUtils.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace MXFIO {

namespace {

using PacketPtr = Templates::auto_ptr<KLV::Packet>;
using Time = PackageTrack::Time;

UInt64 const SEARCH_LIMIT = 4096;

// Without the number of elements of the item.
unsigned int elementOf(unsigned int trackNumber)
{
    return trackNumber & ~0x00FF0000u;
}

bool isPlaying(PackageTrack const & track)
{
    return !track.clips().empty() && !track.isEnded();
}

}

FileOrder::FileOrder(ContentStorageReader & container, Templates::vector<PackageTrack> & tracks) :
    container_(container), tracks_(tracks)
{
}

bool FileOrder::goToEarliest()
{
    Int64 const NONE = std::numeric_limits<Int64>::max();
    Int64 earliest = NONE;
    for (PackageTrack const & track : tracks_)
        if (isPlaying(track) && &track.clip().container() == &container_)
            earliest = std::min(earliest, track.clip().containerEditUnitAt(track.position()));
    if (earliest == NONE)
        return true;
    return container_.isSeekExact() ? container_.seek(earliest) : walkTo(earliest);
}

// Passes all edit units ahead of one whose place nothing tells.
bool FileOrder::walkTo(Int64 editUnit)
{
    if (!container_.seek(0))
        return false;
    while (container_.editUnit() < editUnit || container_.nextElementIndex() != 0)
        if (!container_.nextKLV(SEARCH_LIMIT))
            return false;
    return container_.editUnit() == editUnit;
}

bool FileOrder::next(UInt64 searchLimit, ElementEditUnit & unit)
{
    if (std::none_of(tracks_.begin(), tracks_.end(), isPlaying))
        return false;

    while (PacketPtr packet = container_.nextKLV(searchLimit))
    {
        if (take(packet, unit))
            return true;
        if (isBehindAll(container_.editUnit() - 1))
            break;
        container_.discardKLVPacket(packet);
    }

    for (PackageTrack & track : tracks_)
        track.moved(track.position(), true);
    return false;
}

bool FileOrder::take(PacketPtr & packet, ElementEditUnit & unit)
{
    // The first element of an edit unit has it counted.
    Int64 const editUnit = container_.editUnit() - 1;
    PackageTrack * const track = trackOf(packet->key());
    Time time;
    PackageClip const * const clip = track != nullptr ? track->clipWith(editUnit, time) : nullptr;
    if (clip == nullptr)
        return false;

    unit.trackID = track->trackID();
    unit.elementSize = packet->klvLength();
    unit.duration = Time(1) / clip->reader().containerRate();
    unit.packetBytes = packet->length();
    unit.editUnit = editUnit;
    unit.packet = packet;
    track->moved(time + unit.duration, false);
    return true;
}

PackageTrack * FileOrder::trackOf(KLV::Key const & key)
{
    // Makers have keys of their own, which end as registered ones do.
    if (KLV::isFillItem(key))
        return nullptr;

    unsigned int const element = elementOf(key2TrackNumber(key));
    for (PackageTrack & track : tracks_)
        if (!track.clips().empty() && elementOf(track.clip().reader().trackNumber()) == element)
            return &track;
    return nullptr;
}

// Whether no clip has this edit unit or a later one.
bool FileOrder::isBehindAll(Int64 editUnit) const
{
    for (PackageTrack const & track : tracks_)
        for (PackageClip const & clip : track.clips())
            if (!clip.hasEnd() || clip.containerEditUnitAt(clip.end()) >= editUnit)
                return false;
    return true;
}

}}

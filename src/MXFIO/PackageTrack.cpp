#include "MXFIO/PackageTrack.h"

#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/ElementReader.h"

namespace Vantry { namespace MXFIO {

namespace {

using Time = PackageTrack::Time;

}

PackageTrack::PackageTrack(Metadata::Structural::TimelineTrack const & track, unsigned int trackID) :
    track_(&track), trackID_(trackID)
{
}

PackageTrack::PackageTrack(PackageTrack &&) noexcept = default;
PackageTrack & PackageTrack::operator=(PackageTrack &&) noexcept = default;
PackageTrack::~PackageTrack() = default;

void PackageTrack::turnsPerSecond(Time const & rate)
{
    turnsPerSecond_ = rate;
    moved(position_, isEnded_);
}

void PackageTrack::moved(Time const & position, bool isEnded)
{
    Time const turn = position * turnsPerSecond_;
    turn_ = turn.numerator() / turn.denominator();
    position_ = position;
    isEnded_ = isEnded;
}

bool PackageTrack::next(UInt64 searchLimit, ElementEditUnit & unit)
{
    ElementReader & reader = clips_[current_].reader();
    if (!reader.isAtEnd() && reader.nextElement(searchLimit, unit))
    {
        unit.trackID = trackID_;
        moved(position_ + unit.duration, false);
        return true;
    }

    isEnded_ = !enterNext();
    return false;
}

// Goes to the start of the next clip; false when there is none.
bool PackageTrack::enterNext()
{
    if (current_ + 1 >= clips_.size())
        return false;

    PackageClip & clip = clips_[++current_];
    if (!clip.hasStart())
        clip.start(position_);

    Time time = clip.start();
    clip.seek(time);
    moved(time, false);
    return true;
}

bool PackageTrack::seek(Time const & time)
{
    if (clips_.empty())
        return true;

    PackageClip * const clip = clipAt(time);
    current_ = clip == nullptr ? 0 : static_cast<std::size_t>(clip - clips_.data());
    PackageClip & entered = clips_[current_];
    bool const isOver = entered.hasEnd() && time >= entered.end();
    if (isOver && enterNext())
        return false;

    Time reached = clip == nullptr ? entered.start() : isOver ? entered.end() : time;
    bool const isThere = clip != nullptr && (!isOver || time == reached);
    bool const isReached = entered.seek(reached);
    moved(reached, false);
    return isReached && isThere;
}

// The last clip that starts at a time or ahead of it; null when none does.
PackageClip * PackageTrack::clipAt(Time const & time)
{
    for (auto clip = clips_.rbegin(); clip != clips_.rend(); ++clip)
        if (clip->hasStart() && clip->start() <= time)
            return &*clip;
    return nullptr;
}

PackageClip const * PackageTrack::clipWith(Int64 containerEditUnit, Time & time) const
{
    for (PackageClip const & clip : clips_)
        if (clip.timeOf(containerEditUnit, time))
            return &clip;
    return nullptr;
}

bool PackageTrack::resume()
{
    if (clips_.empty() || clips_[current_].reader().isAtEnd())
        return false;

    isEnded_ = false;
    return true;
}

}}

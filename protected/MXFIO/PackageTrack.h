#pragma once

#include "MXFIO/PackageClip.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

namespace Vantry {
namespace Metadata { namespace Structural {
class TimelineTrack;
}}

namespace MXFIO {

struct ElementEditUnit;

/// A track of a package as it is played: clip after clip. Times whose essence
/// isn't in the file are left out.
class PackageTrack
{
public:
    using Time = PackageClip::Time;

    /// \param track  lent
    PackageTrack(Metadata::Structural::TimelineTrack const & track, unsigned int trackID);
    PackageTrack(PackageTrack &&) noexcept;
    PackageTrack & operator=(PackageTrack &&) noexcept;
    ~PackageTrack();

    Metadata::Structural::TimelineTrack const & track() const { return *track_; }
    unsigned int trackID() const { return trackID_; }

    /// In the order of time.
    Templates::vector<PackageClip> & clips() { return clips_; }
    Templates::vector<PackageClip> const & clips() const { return clips_; }

    /// Seconds, with those whose essence isn't in the file; -1/1 when they
    /// aren't known.
    Time const & length() const { return length_; }
    void length(Time const & seconds) { length_ = seconds; }

    /// The time of what comes next or, when it has ended, of the end.
    Time const & position() const { return position_; }
    bool isEnded() const { return isEnded_; }

    /// The turn in which it is to be read next, counted from 0.
    Int64 turn() const { return turn_; }
    void turnsPerSecond(Time const & rate);

    /// Reads what comes next, unless the track has ended.
    ///
    /// \param unit  is empty
    /// \return false when there was nothing, and the track has ended or is at
    ///         the start of another clip
    bool next(UInt64 searchLimit, ElementEditUnit & unit);

    /// Goes to the edit unit in which a time lies; its end counts as one.
    ///
    /// \return false when the file has none, and the track is at the next that
    ///         it has; or when the track is elsewhere
    bool seek(Time const & time);

    /// Lets it go on where it ended; false when it is known to end there.
    bool resume();

    /// The first clip that shows an edit unit of the container, going by its
    /// number, and when; null when none does.
    PackageClip const * clipWith(Int64 containerEditUnit, Time & time) const;

    /// The clip that comes next, where there are clips.
    PackageClip const & clip() const { return clips_[current_]; }

    /// Takes what was read otherwise.
    void moved(Time const & position, bool isEnded);

private:
    PackageClip * clipAt(Time const & time);
    bool enterNext();

    Metadata::Structural::TimelineTrack const * track_;
    unsigned int trackID_;
    Time length_ = -1;
    Templates::vector<PackageClip> clips_;
    std::size_t current_ = 0;
    Time position_;
    Time turnsPerSecond_ = 1;
    Int64 turn_ = 0;
    bool isEnded_ = true;
};

}
}

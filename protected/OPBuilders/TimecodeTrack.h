#pragma once

#include "OPBuilders/Durations.h"
#include "OPBuilders/ProxyBase.h"

namespace Vantry {
namespace Utils {
class TimeCode;
}

namespace OPBuilders {

/// The time code track of a material package, which counts on without a jump.
class TimecodeTrack
{
public:
    /// Makes the sets; that of the track isn't in a package yet.
    ///
    /// \param start  the first time code
    /// \param rate   edit units per second
    TimecodeTrack(ProxyBase const & base, Utils::TimeCode const & start, Rate const & rate);

    Metadata::Structural::TimelineTrack & track() const { return track_; }

    void duration(Seconds const & seconds);

private:
    Rate const rate_;
    Metadata::Structural::Sequence & sequence_;
    Metadata::Structural::TimecodeComponent & component_;
    Metadata::Structural::TimelineTrack & track_;
};

}
}

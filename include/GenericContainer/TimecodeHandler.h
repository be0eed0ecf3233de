#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"
#include "Utils/TimeCode.h"

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
namespace Structural {
class SourcePackage;
}
}

namespace GenericContainer {

struct EditUnit;
struct TimecodeInfo;

/// Makes the time code track of a source package while its essence is
/// written: one component for each stretch of time code without a jump.
///
/// Durations are in seconds; -1/1 is one that isn't known.
class VANTRY_EXPORT TimecodeHandler
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param metadata       owns the package and the sets that are made; null
    ///                       for no track
    /// \param sourcePackage  lent; null for no track
    /// \param rate           edit units of the container per second
    TimecodeHandler(Templates::SharedPtr<Metadata::PartitionMetadata> metadata,
                    Metadata::Structural::SourcePackage * sourcePackage, Templates::Rational<int> const & rate,
                    TimecodeInfo const & info);

    TimecodeHandler(TimecodeHandler const &) = delete;
    TimecodeHandler & operator=(TimecodeHandler const &) = delete;
    ~TimecodeHandler();

    /// Seconds of essence ahead of the first edit unit that is shown.
    void precharge(Templates::Rational<int> const & precharge);

    /// Makes the track, if there is a time code to start with: that of the
    /// essence or the default. There is none at rates that are neither whole
    /// nor a multiple of 1/1.001, and at those above 255.
    ///
    /// \param timeCode  of the first edit unit; undefined when it has none
    /// \param rate      edit units of the track per second
    /// \param duration  of the track
    void setupTimecodeTrack(Utils::TimeCode timeCode, Templates::Rational<int> const & rate,
                            Templates::Rational<int> const & duration);

    /// Makes an empty track.
    ///
    /// \param origin  edit units of the track ahead of its time 0
    void createTimecodeTrack(Int64 origin, Templates::Rational<int> const & rate,
                             Templates::Rational<int> const & duration);

    /// Follows the time code of the next edit unit: where it jumps, a new
    /// component starts. Jumps that can't be followed, such as a time code that
    /// counts backwards or too many of them, make the track constant.
    void checkTimeCode(EditUnit const & editUnit, Templates::Rational<int> const & rate);

    /// Closes the current component and sets its length.
    void updateTimecodeComponent();

    /// Sets the duration of the whole track.
    void updateTimecodeSequenceDuration();

    /// Whether the time code says nothing of the time of the essence: its
    /// track has no length.
    bool constantTimecode() const;

private:
    class Impl;
    Impl * impl_;
};

}
}

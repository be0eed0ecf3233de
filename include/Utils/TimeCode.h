#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

#include <iosfwd>

namespace Vantry { namespace Utils {

/// A SMPTE 12M time code: a time of day in hours, minutes, seconds and frames
/// at a rounded frame rate.
///
/// At 50 and 60 frames per second the frames field counts pairs of frames and
/// the field phase says which of a pair is meant. With drop frame the first
/// two numbers of the frames field are left out in each minute, but not in
/// every tenth one. An undefined time code stands for "none"; it is what the
/// default constructor and a negative frame counter give.
///
/// A setter checks the value that would result and changes nothing when it
/// throws.
class VANTRY_EXPORT TimeCode
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Undefined, of rate 0.
    TimeCode();

    /// 00:00:00:00.
    ///
    /// \throws Exceptions::InvalidValue for a rate of 0.
    explicit TimeCode(unsigned char frameRate);

    /// \param frameRate  rounded frames per second, at least 1
    /// \param hours      0 to 23
    /// \param minutes    0 to 59
    /// \param seconds    0 to 59
    /// \param frames     0 to `frameRate - 1`; at rates 50 and 60 the pair of
    ///                   frames, 0 to `frameRate / 2 - 1`
    /// \param dropFrame  at rates 24, 30 and 60 only
    /// \param fieldPhase the second frame of a pair, at rates 50 and 60 only
    ///
    /// \throws Exceptions::InvalidValue for anything else, and for frames
    ///         that drop frame leaves out.
    TimeCode(unsigned char frameRate, unsigned char hours, unsigned char minutes, unsigned char seconds,
             unsigned char frames, bool dropFrame, bool fieldPhase);

    /// The time code `frameCounter` frames after midnight, modulo one day;
    /// undefined for a negative counter.
    ///
    /// \throws Exceptions::InvalidValue for a rate of 0, and for drop frame
    ///         at a rate other than 24, 30 and 60.
    TimeCode(unsigned char frameRate, Int64 frameCounter, bool dropFrame);

    TimeCode(TimeCode const & other);
    TimeCode & operator=(TimeCode const & other);
    virtual ~TimeCode();

    unsigned char frameRate() const { return frameRate_; }

    unsigned char hours() const { return hours_; }
    void hours(unsigned char hours);

    unsigned char minutes() const { return minutes_; }
    void minutes(unsigned char minutes);

    unsigned char seconds() const { return seconds_; }
    void seconds(unsigned char seconds);

    unsigned char frames() const { return frames_; }

    /// That drop frame leaves a number out is checked for the frames that are
    /// replaced, not for the new ones.
    void frames(unsigned char frames);

    bool dropFrame() const { return dropFrame_; }
    void dropFrame(bool dropFrame);

    bool fieldPhase() const { return fieldPhase_; }
    void fieldPhase(bool fieldPhase);

    bool isDefined() const { return isDefined_; }

    /// Frames since midnight, both of a pair counted.
    UInt64 toFrameCounter() const;

    /// Goes on by one frame, from the last of the day to the first.
    TimeCode const & operator++();

    /// The same; returns the time code before.
    TimeCode operator++(int);

    /// "hh:mm:ss:ff", or "--:--:--:--" when undefined.
    ///
    /// \param showDropFrame  adds " (DF)" to a drop frame time code
    /// \param showFieldPhase adds ".0" or ".1" at 50 and 60 frames per second
    Templates::wstring toString(bool showDropFrame, bool showFieldPhase) const;

private:
    unsigned int multiplexFactor() const;
    unsigned int framesPerSecond() const;
    bool isDroppedMinute() const;
    void split(UInt64 frameCounter);
    void checkFrameRate() const;
    void checkDropFrameRate() const;
    void check(unsigned int hours, unsigned int minutes, unsigned int seconds, unsigned int frames, bool dropFrame,
               bool fieldPhase) const;

    unsigned char frameRate_;
    unsigned char hours_;
    unsigned char minutes_;
    unsigned char seconds_;
    unsigned char frames_;
    bool dropFrame_;
    bool isDefined_;
    bool fieldPhase_;
};

/// Equal hours, minutes, seconds, frames and drop frame; rate and field phase
/// don't count. Undefined time codes equal each other and nothing else.
VANTRY_EXPORT bool operator==(TimeCode const & left, TimeCode const & right);

/// By hours, minutes, seconds and frames alone, for undefined values too.
VANTRY_EXPORT bool operator<(TimeCode const & left, TimeCode const & right);

/// Writes the text with drop frame and field phase.
VANTRY_EXPORT std::ostream & operator<<(std::ostream & out, TimeCode const & timeCode);

}}

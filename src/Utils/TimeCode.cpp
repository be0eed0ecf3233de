#include "Utils/TimeCode.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "Platform/Text.h"

#include <cstdio>
#include <ostream>
#include <tuple>

namespace Vantry { namespace Utils {

namespace {

unsigned int const HOURS_PER_DAY = 24;
unsigned int const MINUTES_PER_HOUR = 60;
unsigned int const SECONDS_PER_MINUTE = 60;

// Every tenth minute is a full one.
unsigned int const DROP_CYCLE = 10;
unsigned int const DROPPED_MINUTES_PER_HOUR = MINUTES_PER_HOUR - MINUTES_PER_HOUR / DROP_CYCLE;

// Numbers of the frames field that a dropped minute leaves out. It holds for
// 60 frames per second too, where the field counts pairs.
unsigned int const DROPPED_NUMBERS = 2;

bool pairsFrames(unsigned char frameRate)
{
    return frameRate == 50 || frameRate == 60;
}

bool allowsDropFrame(unsigned char frameRate)
{
    return frameRate == 24 || frameRate == 30 || frameRate == 60;
}

Templates::string digits(unsigned int hours, unsigned int minutes, unsigned int seconds, unsigned int frames)
{
    char text[48];
    std::snprintf(text, sizeof text, "%02u:%02u:%02u:%02u", hours, minutes, seconds, frames);
    return text;
}

Templates::string number(unsigned char value)
{
    char text[4];
    std::snprintf(text, sizeof text, "%u", static_cast<unsigned int>(value));
    return text;
}

auto timeOfDay(TimeCode const & timeCode)
{
    return std::make_tuple(timeCode.hours(), timeCode.minutes(), timeCode.seconds(), timeCode.frames());
}

}

TimeCode::TimeCode() :
    frameRate_(0),
    hours_(0),
    minutes_(0),
    seconds_(0),
    frames_(0),
    dropFrame_(false),
    isDefined_(false),
    fieldPhase_(false)
{
}

TimeCode::TimeCode(unsigned char frameRate) :
    frameRate_(frameRate),
    hours_(0),
    minutes_(0),
    seconds_(0),
    frames_(0),
    dropFrame_(false),
    isDefined_(true),
    fieldPhase_(false)
{
    checkFrameRate();
}

TimeCode::TimeCode(unsigned char frameRate, unsigned char hours, unsigned char minutes, unsigned char seconds,
                   unsigned char frames, bool dropFrame, bool fieldPhase) :
    frameRate_(frameRate),
    hours_(hours),
    minutes_(minutes),
    seconds_(seconds),
    frames_(frames),
    dropFrame_(dropFrame),
    isDefined_(true),
    fieldPhase_(fieldPhase)
{
    checkFrameRate();
    if (dropFrame)
        checkDropFrameRate();
    check(hours, minutes, seconds, frames, dropFrame, fieldPhase);
}

TimeCode::TimeCode(unsigned char frameRate, Int64 frameCounter, bool dropFrame) : TimeCode(frameRate)
{
    if (frameCounter < 0)
    {
        isDefined_ = false;
        return;
    }

    if (dropFrame)
        checkDropFrameRate();
    dropFrame_ = dropFrame;
    split(static_cast<UInt64>(frameCounter));
}

TimeCode::TimeCode(TimeCode const & other) = default;
TimeCode & TimeCode::operator=(TimeCode const & other) = default;
TimeCode::~TimeCode() = default;

void TimeCode::hours(unsigned char hours)
{
    check(hours, minutes_, seconds_, frames_, dropFrame_, fieldPhase_);
    hours_ = hours;
}

void TimeCode::minutes(unsigned char minutes)
{
    check(hours_, minutes, seconds_, frames_, dropFrame_, fieldPhase_);
    minutes_ = minutes;
}

void TimeCode::seconds(unsigned char seconds)
{
    check(hours_, minutes_, seconds, frames_, dropFrame_, fieldPhase_);
    seconds_ = seconds;
}

void TimeCode::frames(unsigned char frames)
{
    check(hours_, minutes_, seconds_, frames, dropFrame_, fieldPhase_);
    frames_ = frames;
}

void TimeCode::dropFrame(bool dropFrame)
{
    if (dropFrame)
        checkDropFrameRate();
    check(hours_, minutes_, seconds_, frames_, dropFrame, fieldPhase_);
    dropFrame_ = dropFrame;
}

void TimeCode::fieldPhase(bool fieldPhase)
{
    check(hours_, minutes_, seconds_, frames_, dropFrame_, fieldPhase);
    fieldPhase_ = fieldPhase;
}

UInt64 TimeCode::toFrameCounter() const
{
    UInt64 const factor = multiplexFactor();
    UInt64 const seconds = (UInt64(hours_) * MINUTES_PER_HOUR + minutes_) * SECONDS_PER_MINUTE + seconds_;
    UInt64 const count = seconds * frameRate_ + frames_ * factor + (fieldPhase_ ? 1 : 0);
    if (!dropFrame_)
        return count;

    UInt64 const droppedMinutes = hours_ * DROPPED_MINUTES_PER_HOUR + (minutes_ - minutes_ / DROP_CYCLE);
    return count - DROPPED_NUMBERS * factor * droppedMinutes;
}

TimeCode const & TimeCode::operator++()
{
    bool const isFirstOfPair = multiplexFactor() == 2 && !fieldPhase_;
    fieldPhase_ = isFirstOfPair;

    if (!isFirstOfPair && ++frames_ == framesPerSecond())
    {
        frames_ = 0;
        if (++seconds_ == SECONDS_PER_MINUTE)
        {
            seconds_ = 0;
            if (++minutes_ == MINUTES_PER_HOUR)
            {
                minutes_ = 0;
                if (++hours_ == HOURS_PER_DAY)
                    hours_ = 0;
            }
        }
    }

    if (dropFrame_ && frames_ == 0 && seconds_ == 0 && isDroppedMinute())
        frames_ = DROPPED_NUMBERS;
    return *this;
}

TimeCode TimeCode::operator++(int)
{
    TimeCode before(*this);
    ++*this;
    return before;
}

Templates::wstring TimeCode::toString(bool showDropFrame, bool showFieldPhase) const
{
    if (!isDefined_)
        return Platform::stringToWstring("--:--:--:--");

    Templates::string text = digits(hours_, minutes_, seconds_, frames_);
    if (showFieldPhase && pairsFrames(frameRate_))
        text += fieldPhase_ ? ".1" : ".0";
    if (showDropFrame && dropFrame_)
        text += " (DF)";
    return Platform::stringToWstring(text.c_str());
}

unsigned int TimeCode::multiplexFactor() const
{
    return isDefined_ && pairsFrames(frameRate_) ? 2 : 1;
}

// How many numbers the frames field runs through.
unsigned int TimeCode::framesPerSecond() const
{
    return frameRate_ / multiplexFactor();
}

bool TimeCode::isDroppedMinute() const
{
    return minutes_ % DROP_CYCLE != 0;
}

// Sets the time of day from a frame counter of any size. Ten minutes are one
// full minute and nine that lack their first frames.
void TimeCode::split(UInt64 frameCounter)
{
    UInt64 const rate = frameRate_;
    UInt64 const dropped = dropFrame_ ? DROPPED_NUMBERS * multiplexFactor() : 0;
    UInt64 const perMinute = rate * SECONDS_PER_MINUTE;
    UInt64 const perCycle = perMinute * DROP_CYCLE - dropped * (DROP_CYCLE - 1);
    UInt64 const cyclesPerHour = MINUTES_PER_HOUR / DROP_CYCLE;

    UInt64 const cycles = frameCounter / perCycle % (cyclesPerHour * HOURS_PER_DAY);
    UInt64 rest = frameCounter % perCycle;
    UInt64 minutes = 0;
    if (rest >= perMinute)
    {
        minutes = 1 + (rest - perMinute) / (perMinute - dropped);
        rest = (rest - perMinute) % (perMinute - dropped) + dropped;
    }

    hours_ = static_cast<unsigned char>(cycles / cyclesPerHour);
    minutes_ = static_cast<unsigned char>(cycles % cyclesPerHour * DROP_CYCLE + minutes);
    seconds_ = static_cast<unsigned char>(rest / rate);
    frames_ = static_cast<unsigned char>(rest % rate / multiplexFactor());
    fieldPhase_ = rest % rate % multiplexFactor() == 1;
}

void TimeCode::checkFrameRate() const
{
    VANTRY_CHECK(frameRate_ > 0, InvalidValue, "Invalid frameRate.");
}

void TimeCode::checkDropFrameRate() const
{
    if (!allowsDropFrame(frameRate_))
        VANTRY_FAIL(InvalidValue, "Drop frame only allowed in 30 or 60 fps timecode and not for " + number(frameRate_) +
                                      " fps timecode.");
}

void TimeCode::check(unsigned int hours, unsigned int minutes, unsigned int seconds, unsigned int frames,
                     bool dropFrame, bool fieldPhase) const
{
    if (fieldPhase)
        VANTRY_CHECK(this -> multiplexFactor () != 1, InvalidValue,
                     "Field Phase value is only supported for frame rate of 60 or 50.");

    if (hours >= HOURS_PER_DAY || minutes >= MINUTES_PER_HOUR || seconds >= SECONDS_PER_MINUTE ||
        frames >= framesPerSecond())
        VANTRY_FAIL(InvalidValue, "Invalid value of " + digits(hours, minutes, seconds, frames) + " for " +
                                      number(frameRate_) + " fps timecode");

    // The stored frames decide here, not the ones to set.
    bool const isDropped = dropFrame && seconds == 0 && minutes % DROP_CYCLE != 0;
    if (isDropped && frames_ < DROPPED_NUMBERS)
        VANTRY_FAIL(InvalidValue, "Invalid value of " + digits(hours, minutes, 0, frames) + " for " +
                                      number(frameRate_) + " fps drop frame timecode");
}

bool operator==(TimeCode const & left, TimeCode const & right)
{
    if (!left.isDefined() || !right.isDefined())
        return left.isDefined() == right.isDefined();
    return timeOfDay(left) == timeOfDay(right) && left.dropFrame() == right.dropFrame();
}

bool operator<(TimeCode const & left, TimeCode const & right)
{
    return timeOfDay(left) < timeOfDay(right);
}

std::ostream & operator<<(std::ostream & out, TimeCode const & timeCode)
{
    return out << Platform::wstringToString(timeCode.toString(true, true).c_str());
}

}}

#include "Utils/TimeCodeExtended.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Utils {

namespace {

bool equal(TimeCodeExtended::BinaryGroups const & left, TimeCodeExtended::BinaryGroups const & right)
{
    return left.flag0 == right.flag0 && left.flag1 == right.flag1 && left.flag2 == right.flag2 &&
           std::equal(std::begin(left.groups), std::end(left.groups), std::begin(right.groups));
}

}

TimeCodeExtended::TimeCodeExtended() : colorFrame_(false) {}

TimeCodeExtended::TimeCodeExtended(unsigned char frameRate) : TimeCode(frameRate), colorFrame_(false) {}

TimeCodeExtended::TimeCodeExtended(unsigned char frameRate, unsigned char hours, unsigned char minutes,
                                   unsigned char seconds, unsigned char frames, bool dropFrame,
                                   BinaryGroups binaryGroups, bool colorFrame, bool fieldPhase) :
    TimeCode(frameRate, hours, minutes, seconds, frames, dropFrame, fieldPhase),
    binaryGroups_(binaryGroups),
    colorFrame_(colorFrame)
{
}

TimeCodeExtended::TimeCodeExtended(unsigned char frameRate, Int64 frameCounter, bool dropFrame,
                                   BinaryGroups binaryGroups, bool colorFrame, bool fieldPhase) :
    TimeCode(frameRate, frameCounter, dropFrame), binaryGroups_(binaryGroups), colorFrame_(colorFrame)
{
    this->fieldPhase(fieldPhase);
}

TimeCodeExtended::TimeCodeExtended(TimeCodeExtended const & other) = default;
TimeCodeExtended & TimeCodeExtended::operator=(TimeCodeExtended const & other) = default;
TimeCodeExtended::~TimeCodeExtended() = default;

TimeCodeExtended::BinaryGroups TimeCodeExtended::binaryGroups() const
{
    return binaryGroups_;
}

void TimeCodeExtended::binaryGroups(BinaryGroups binaryGroups)
{
    binaryGroups_ = binaryGroups;
}

bool TimeCodeExtended::colorFrame() const
{
    return colorFrame_;
}

void TimeCodeExtended::colorFrame(bool colorFrame)
{
    colorFrame_ = colorFrame;
}

bool operator==(TimeCodeExtended const & left, TimeCodeExtended const & right)
{
    return static_cast<TimeCode const &>(left) == static_cast<TimeCode const &>(right) &&
           equal(left.binaryGroups(), right.binaryGroups()) && left.colorFrame() == right.colorFrame() &&
           left.fieldPhase() == right.fieldPhase();
}

}}

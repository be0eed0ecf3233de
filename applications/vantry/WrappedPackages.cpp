#include "WrappedPackages.h"

#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/PackageHelpers.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Platform/Text.h"
#include "Types/Boolean.h"
#include "Types/Factories/TimeStamp.h"
#include "Types/Position.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UTF16String.h"
#include "Utils/TimeCode.h"

#include <algorithm>
#include <ctime>

namespace Vantry { namespace Application {

using namespace Metadata::Structural;

namespace {

Types::UInt32 const TIMECODE_TRACK_ID(1);

// A timestamp has no second 60.
int const LAST_SECOND = 59;

}

Types::Timestamp dateOfNow(bool isDeterministic)
{
    if (isDeterministic)
        return Types::Factories::TimeStamp::getCurrentDate();

    auto const byte = [](int field)
    {
        return static_cast<unsigned char>(field);
    };
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    std::tm utc{};
    ::gmtime_r(&now.tv_sec, &utc);
    return Types::Timestamp(static_cast<unsigned short>(utc.tm_year + 1900), byte(utc.tm_mon + 1), byte(utc.tm_mday),
                            byte(utc.tm_hour), byte(utc.tm_min), byte(std::min(utc.tm_sec, LAST_SECOND)),
                            static_cast<unsigned short>(now.tv_nsec / 1000000));
}

void setDates(GenericPackage & package, Types::Timestamp const & date)
{
    package.packageCreationDate(&date);
    package.packageModifiedDate(&date);
}

void setName(GenericPackage & package, std::string const & name)
{
    Types::UTF16String const text(Platform::stringToWstring(name.c_str()).c_str());
    package.packageName(&text);
}

void numberTracks(MaterialPackage & package)
{
    for (unsigned int i = 1; i < package.tracksCount(); ++i)
        if (isTimeCodeTrack(package.track(i)))
        {
            Track * const timecode = package.track(i);
            package.removeTrack(i);
            package.addTrack(0, timecode);
        }

    for (unsigned int i = 0; i < package.tracksCount(); ++i)
    {
        Types::UInt32 const trackID(i + 1);
        package.track(i)->trackID(&trackID);
    }
}

TimelineTrack & essenceTrack(SourcePackage const & package)
{
    Templates::list<TimelineTrack *> tracks;
    getAllEssenceTracks(package, tracks);
    return *tracks.front();
}

void numberTimeCodeTrack(SourcePackage & package)
{
    if (TimelineTrack * const track = getTimecodeTrack(package))
        track->trackID(&TIMECODE_TRACK_ID);
}

void setStartTimeCode(SourcePackage & package, Utils::TimeCode const & start)
{
    TimelineTrack * const track = getTimecodeTrack(package);
    if (track == nullptr || track->sequence()->structuralComponentsCount() == 0)
        return;

    auto & component = dynamic_cast<TimecodeComponent &>(*track->sequence()->structuralComponent(0));
    Types::UInt16 const base(start.frameRate());
    Types::Position const position(static_cast<Int64>(start.toFrameCounter()));
    Types::Boolean const dropFrame(start.dropFrame());
    component.roundedTimecodeBase(&base);
    component.startTimecode(&position);
    component.dropFrame(&dropFrame);
}

}}

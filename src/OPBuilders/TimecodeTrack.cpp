#include "OPBuilders/TimecodeTrack.h"

#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "OPBuilders/TimelineSets.h"
#include "Platform/WideLiteral.h"
#include "Types/Boolean.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/UInt16.h"
#include "Types/UniversalLabel.h"
#include "Utils/TimeCode.h"

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;

namespace {

TimecodeComponent & createComponent(ProxyBase const & base, Utils::TimeCode const & start)
{
    Types::UInt16 const framesPerSecond(start.frameRate());
    Types::Position const startTimecode(static_cast<Int64>(start.toFrameCounter()));
    Types::Boolean const dropFrame(start.dropFrame());

    TimecodeComponent & component = base.create<TimecodeComponent>(StructuralMetadataKeys::timecodeComponent());
    component.dataDefinition(&DataDefinitionULs::timecode12MInactive());
    component.roundedTimecodeBase(&framesPerSecond);
    component.dropFrame(&dropFrame);
    component.startTimecode(&startTimecode);
    return component;
}

}

TimecodeTrack::TimecodeTrack(ProxyBase const & base, Utils::TimeCode const & start, Rate const & rate) :
    rate_(rate),
    sequence_(createSequence(base, DataDefinitionULs::timecode12MInactive())),
    component_(createComponent(base, start)),
    track_(createTimelineTrack(base, 0, rate, 0, Platform::wide(u"Timecode")))
{
    sequence_.addStructuralComponent(0, &component_);
    track_.sequence(&sequence_);
}

void TimecodeTrack::duration(Seconds const & seconds)
{
    Types::Length const length(editUnitsOf(seconds, rate_));
    sequence_.duration(&length);
    component_.duration(&length);
}

}}

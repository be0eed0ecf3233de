#include "GenericContainer/PackageTracks.h"

#include "Metadata/Structural/PackageHelpers.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Utils/Time.h"

#include <algorithm>

namespace Vantry { namespace GenericContainer {

namespace {

Int64 const UNKNOWN = -1;

Templates::list<Metadata::Structural::TimelineTrack *>
timelineTracks(Metadata::Structural::SourcePackage const & package)
{
    Templates::list<Metadata::Structural::TimelineTrack *> tracks;
    getAllTimelineTracks(package, tracks);
    return tracks;
}

Int64 valueOf(Types::Length const * length)
{
    return length != nullptr ? length->value() : UNKNOWN;
}

void setDuration(Metadata::Structural::Sequence & sequence, Int64 duration)
{
    Types::Length const length(duration);
    sequence.duration(&length);

    Metadata::Structural::StructuralComponent * last = nullptr;
    Int64 rest = duration;
    unsigned int const count = sequence.structuralComponentsCount();
    for (unsigned int i = 0; i < count; ++i)
    {
        if (last != nullptr)
            rest -= valueOf(last->duration());
        last = sequence.structuralComponent(i);
    }
    if (last == nullptr)
        return;
    Types::Length const lastLength(rest);
    last->duration(&lastLength);
}

}

Int64 smallestDuration(Metadata::Structural::SourcePackage const & package)
{
    Int64 smallest = UNKNOWN;
    for (Metadata::Structural::TimelineTrack const * track : timelineTracks(package))
    {
        Metadata::Structural::Sequence const * const sequence = track->sequence();
        Int64 const duration = sequence != nullptr ? valueOf(sequence->duration()) : UNKNOWN;
        if (duration != UNKNOWN)
            smallest = smallest == UNKNOWN ? duration : std::min(smallest, duration);
    }
    return smallest;
}

void setDuration(Metadata::Structural::SourcePackage & package, Int64 duration, bool timecodeToo)
{
    for (Metadata::Structural::TimelineTrack * track : timelineTracks(package))
        if (track->sequence() != nullptr && (timecodeToo || !Metadata::Structural::isTimeCodeTrack(track)))
            setDuration(*track->sequence(), duration);
}

void setOrigins(Metadata::Structural::SourcePackage & package, Templates::Rational<int> const & preCharge)
{
    for (Metadata::Structural::TimelineTrack * track : timelineTracks(package))
    {
        Types::Rational const * const editRate = track->editRate();
        if (editRate == nullptr)
            continue;
        Types::Position const origin(Utils::Time::convertSecondsToEditUnit(preCharge, editRate->value()));
        track->origin(&origin);
    }
}

}}

#include "Metadata/Structural/TrackHelpers.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidValue.h"
#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Boolean.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UUID.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

namespace {

Types::UniversalLabel const * dataDefinitionOf(Track const * track)
{
    Sequence const * const sequence = track != nullptr ? track->sequence() : nullptr;
    return sequence != nullptr ? sequence->dataDefinition() : nullptr;
}

void removeSet(PartitionMetadata & metadata, MetadataSet const & set)
{
    Types::UUID const identifier = *set.instanceUID();
    metadata.removeMetadataSet(identifier);
}

}

bool isEssenceDataDefinition(Types::UniversalLabel const & dataDefinition)
{
    return dataDefinition == DataDefinitionULs::picture() || dataDefinition == DataDefinitionULs::audio() ||
           dataDefinition == DataDefinitionULs::data();
}

bool isTimecodeDataDefinition(Types::UniversalLabel const & dataDefinition)
{
    return dataDefinition == DataDefinitionULs::timecode12MInactive() ||
           dataDefinition == DataDefinitionULs::timecode12MActive() ||
           dataDefinition == DataDefinitionULs::timecode309M();
}

bool isEssenceTrack(Track const * track)
{
    Types::UniversalLabel const * const dataDefinition = dataDefinitionOf(track);
    return dataDefinition != nullptr && isEssenceDataDefinition(*dataDefinition);
}

bool isTimeCodeTrack(Track const * track)
{
    Types::UniversalLabel const * const dataDefinition = dataDefinitionOf(track);
    return dataDefinition != nullptr && isTimecodeDataDefinition(*dataDefinition);
}

bool isDropFrame(Track const & track)
{
    Sequence const * const seq = track.sequence();
    VANTRY_CHECK(seq != 0, InvalidFormat, "Timecode track has no sequence");

    unsigned int const count = seq->structuralComponentsCount();
    VANTRY_CHECK(count != 0, InvalidFormat, "Timecode track has no timecode components");

    StructuralComponent const * const component = seq->structuralComponent(0);
    VANTRY_CHECK(component != 0, InvalidFormat, "Timecode track has no timecode components");

    TimecodeComponent const * const tc = dynamic_cast<TimecodeComponent const *>(component);
    VANTRY_CHECK(tc != 0, InvalidFormat, "Timecode component has invalid type");

    Types::Boolean const * const b = tc->dropFrame();
    VANTRY_CHECK(b != 0, InvalidFormat, "Timecode component does not have the 'dropFrame' element");

    return b->value();
}

bool trackBoundsInSeconds(TimelineTrack const * track, Templates::Rational<Int64> & start,
                          Templates::Rational<Int64> & end)
{
    Sequence const * const sequence = track != nullptr ? track->sequence() : nullptr;
    Types::Length const * const duration = sequence != nullptr ? sequence->duration() : nullptr;
    if (duration == nullptr || duration->value() == -1)
        return false;

    Types::Position const * const origin = track->origin();
    Types::Rational const * const editRate = track->editRate();
    if (origin == nullptr || editRate == nullptr || editRate->denominator() == 0 || editRate->numerator() == 0)
        return false;

    Int64 last = 0;
    if (__builtin_add_overflow(origin->value(), duration->value(), &last))
        return false;

    try
    {
        Templates::Rational<Int64> const editUnit(editRate->denominator(), editRate->numerator());
        Templates::Rational<Int64> const first = editUnit * Templates::Rational<Int64>(origin->value());
        end = editUnit * Templates::Rational<Int64>(last);
        start = first;
        return true;
    }
    catch (Exceptions::InvalidValue const &)
    {
        // More seconds than there are numbers.
        return false;
    }
}

TimelineTrack * createTimelineTrack(PartitionMetadata & metadata, GenericPackage & package,
                                    Types::UniversalLabel const & dataDefinition, unsigned int trackID,
                                    unsigned int trackNumber, Types::Position const & origin,
                                    Types::Rational const & editRate, Types::Length const & length)
{
    TimelineTrack & track = createSet<TimelineTrack>(metadata, StructuralMetadataKeys::timelineTrack());
    Types::UInt32 const identifier(trackID);
    Types::UInt32 const number(trackNumber);
    track.trackID(&identifier);
    track.trackNumber(&number);
    track.editRate(&editRate);
    track.origin(&origin);

    Sequence & sequence = createSet<Sequence>(metadata, StructuralMetadataKeys::sequence());
    sequence.dataDefinition(&dataDefinition);
    sequence.duration(&length);

    try
    {
        track.sequence(&sequence);
        package.addTrack(package.tracksCount(), &track);
        return &track;
    }
    catch (...)
    {
        removeSet(metadata, track);
        removeSet(metadata, sequence);
        return nullptr;
    }
}

SourceClip * addSourceClip(PartitionMetadata & metadata, Sequence * sequence,
                           Types::UniversalLabel const & dataDefinition, Types::Position const & start,
                           Types::Length const & length)
{
    SourceClip & clip = createSet<SourceClip>(metadata, StructuralMetadataKeys::sourceClip());
    clip.dataDefinition(&dataDefinition);
    clip.startPosition(&start);
    clip.duration(&length);
    clip.sourceTrack(nullptr);
    clip.sourcePackage(nullptr);
    sequence->addStructuralComponent(sequence->structuralComponentsCount(), &clip);
    return &clip;
}

}}}

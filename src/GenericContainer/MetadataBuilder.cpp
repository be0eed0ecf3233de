#include "GenericContainer/MetadataBuilder.h"

#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UniversalLabel.h"
#include "Utils/Time.h"

namespace Vantry { namespace GenericContainer {

namespace {

Types::Length const UNKNOWN_LENGTH(-1);

}

MetadataBuilder::MetadataBuilder(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                                 Metadata::Structural::MultipleDescriptor * multipleDescriptor,
                                 unsigned int trackNumber, unsigned int trackId,
                                 Templates::Rational<int> const & editRate, Templates::Rational<int> const & origin) :
    metadata_(metadata),
    preface_(Metadata::Structural::findPreface(metadata)),
    package_(package),
    multipleDescriptor_(multipleDescriptor),
    trackNumber_(trackNumber),
    trackId_(trackId),
    editRate_(editRate),
    origin_(origin),
    position_(-1),
    finished_(false)
{
}

MetadataBuilder::~MetadataBuilder() = default;

void MetadataBuilder::finish()
{
    if (finished_)
        return;
    finished_ = true;
    if (package_ != nullptr)
        updateEssenceTracks();
}

void MetadataBuilder::setDescriptorToPackage(Metadata::Structural::FileDescriptor * descriptor)
{
    if (multipleDescriptor_ != nullptr)
        multipleDescriptor_->addSubDescriptor(multipleDescriptor_->subDescriptorsCount(), descriptor);
    else if (package_ != nullptr)
        package_->descriptor(descriptor);
}

Metadata::Structural::TimelineTrack * MetadataBuilder::createEssenceTrack(Types::UniversalLabel const & dataDefinition,
                                                                          unsigned int trackNumber)
{
    if (package_ == nullptr)
        return nullptr;

    auto const trackID = trackId_ + static_cast<unsigned int>(tracks_.size());
    Types::Rational const editRate(editRate_.numerator(), editRate_.denominator());
    Metadata::Structural::TimelineTrack * const track = Metadata::Structural::createTimelineTrack(
        metadata_, *package_, dataDefinition, trackID, trackNumber, convertSecondsToEditUnit(origin_, editRate_),
        editRate, UNKNOWN_LENGTH);
    if (track == nullptr)
        return nullptr;

    tracks_.push_back(track);
    Metadata::Structural::addSourceClip(metadata_, track->sequence(), dataDefinition, 0, UNKNOWN_LENGTH);
    return track;
}

void MetadataBuilder::updateEssenceTrack(Metadata::Structural::TimelineTrack * track)
{
    if (!Metadata::Structural::isEssenceTrack(track))
        return;

    Metadata::Structural::Sequence * const sequence = track->sequence();
    Types::Length const * const duration = sequence->duration();
    Int64 end = position_ + 1;
    if (duration == nullptr || duration->value() < 0)
    {
        end -= convertSecondsToEditUnit(origin_, editRate_);
        Types::Length const length(end);
        sequence->duration(&length);
    }

    Metadata::Structural::SourceClip * const clip = getLastSourceClip(sequence);
    if (clip == nullptr)
        return;
    Types::Position const * const start = clip->startPosition();
    Types::Length const length(start != nullptr ? end - start->value() : end);
    clip->duration(&length);
}

void MetadataBuilder::updateEssenceTracks()
{
    for (Metadata::Structural::TimelineTrack * track : tracks_)
        updateEssenceTrack(track);
}

Metadata::Structural::SourceClip * MetadataBuilder::getLastSourceClip(Metadata::Structural::Sequence * sequence) const
{
    unsigned int const count = sequence != nullptr ? sequence->structuralComponentsCount() : 0;
    return count != 0 ? dynamic_cast<Metadata::Structural::SourceClip *>(sequence->structuralComponent(count - 1))
                      : nullptr;
}

Int64 MetadataBuilder::convertSecondsToEditUnit(Templates::Rational<int> const & seconds,
                                                Templates::Rational<int> const & editRate) const
{
    return Utils::Time::convertSecondsToEditUnit(seconds, editRate);
}

}}

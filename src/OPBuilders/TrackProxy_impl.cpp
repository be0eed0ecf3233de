#include "OPBuilders/TrackProxy_impl.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "OPBuilders/ClipData.h"
#include "OPBuilders/TimelineSets.h"
#include "Platform/Text.h"
#include "Types/Length.h"
#include "Types/Rational.h"

#include <string>

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;

namespace {

Rate const UNSET_RATE(-1);

bool isWhole(Track const & track, Int64 start, Int64 length)
{
    Sequence const * const sequence = track.sequence();
    Types::Length const * const duration = sequence != nullptr ? sequence->duration() : nullptr;
    return start == 0 && duration != nullptr && duration->value() == length;
}

}

TrackProxy_impl::TrackProxy_impl(ProxyBase const & base, unsigned int trackID, Int64 origin, Rate const * rate) :
    ProxyBase(base),
    origin_(origin),
    sequence_(&createSequence(base, Metadata::MetadataULs::null())),
    track_(nullptr),
    rate_(rate != nullptr ? *rate : UNSET_RATE),
    dataDefinition_(Metadata::MetadataULs::null()),
    seconds_(unknownSeconds())
{
    Templates::wstring const name = Platform::stringToWstring(("Track " + std::to_string(trackID)).c_str());
    track_ = &createTimelineTrack(base, trackID, rate_, origin, name.c_str());
    track_->sequence(sequence_);
}

TrackProxy_impl::~TrackProxy_impl() = default;

void TrackProxy_impl::addSubClip(SourcePackage & package, Track & track, Int64 start, Int64 length)
{
    if (isWhole(track, start, length))
        return addClip(package, track);

    TimelineTrack & source = accept(track);
    add(std::make_unique<SubClipData>(base(), package, source, rate_, start, length));
    label().raise(OPLabel::SUB_CLIPS);
}

void TrackProxy_impl::addClip(SourcePackage & package, Track & track)
{
    addWholeTrack(package, track);
}

void TrackProxy_impl::addWholeTrack(GenericPackage & package, Track & track)
{
    TimelineTrack & source = accept(track);
    add(std::make_unique<ClipData>(base(), package, source, rate_));
}

void TrackProxy_impl::update()
{
    if (clips_.empty())
        return;

    Seconds sum;
    for (std::unique_ptr<ClipData> const & clip : clips_)
    {
        clip->update();
        sum = isKnown(sum) && isKnown(clip->seconds()) ? sum + clip->seconds() : unknownSeconds();
    }
    seconds_ = sum;

    Types::Rational const rate(rate_.numerator(), rate_.denominator());
    Types::Length const length(editUnitsOf(seconds_, rate_));
    track_->editRate(&rate);
    sequence_->dataDefinition(&dataDefinition_);
    sequence_->duration(&length);
}

GenericPackage const * TrackProxy_impl::firstSource() const
{
    return clips_.empty() ? nullptr : &clips_.front()->package();
}

// Gives a track that can be a source of this one, and takes over from it what
// isn't known yet.
TimelineTrack & TrackProxy_impl::accept(Track & track)
{
    TimelineTrack * const tt = dynamic_cast<TimelineTrack *>(&track);
    VANTRY_CHECK(tt != 0, InvalidFormat, "Only Timeline Tracks are allowed");
    Types::Rational const * const rate = tt->editRate();
    VANTRY_CHECK(rate != 0, InvalidFormat, "Track has no Edit Rate");
    Sequence const * const seq = tt->sequence();
    VANTRY_CHECK(seq != 0, InvalidFormat, "Track has no Sequence");
    Types::UniversalLabel const * const dataDefinition = seq->dataDefinition();
    VANTRY_CHECK(dataDefinition != 0, InvalidFormat, "Sequence has no Data Definition");
    bool const isFirst = dataDefinition_ == Metadata::MetadataULs::null();
    VANTRY_CHECK_TEXT(isFirst || dataDefinition_ == *dataDefinition, "dataDefinition_ == *dataDefinition",
                      InvalidFormat, "Adding tracks with different Data Definitions");

    if (rate_ == UNSET_RATE)
        rate_ = Rate(rate->numerator(), rate->denominator());
    dataDefinition_ = *dataDefinition;
    return *tt;
}

void TrackProxy_impl::add(std::unique_ptr<ClipData> clip)
{
    sequence_->addStructuralComponent(static_cast<unsigned int>(clips_.size()), &clip->create());
    clips_.push_back(std::move(clip));
    if (clips_.size() > 1)
        label().raise(OPLabel::SEVERAL_CLIPS);
}

}}

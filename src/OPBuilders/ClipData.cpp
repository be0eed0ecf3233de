#include "OPBuilders/ClipData.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;

ClipData::ClipData(ProxyBase const & base, GenericPackage & package, TimelineTrack & track, Rate const & rate) :
    ProxyBase(base), package_(package), track_(track), rate_(rate)
{
}

SourceClip & ClipData::create()
{
    sourceSequence();
    clip_ = &ProxyBase::create<SourceClip>(StructuralMetadataKeys::sourceClip());
    clip_->sourcePackage(&package_);
    clip_->sourceTrack(&track_);
    return *clip_;
}

void ClipData::setDuration(Int64 length)
{
    isPart_ = true;
    seconds_ = secondsOf(length, rate_);
}

ClipData::~ClipData() = default;

void ClipData::update()
{
    Sequence const & source = sourceSequence();
    if (!isPart_)
        seconds_ = secondsOfSource();

    Types::Length const length(editUnitsOf(seconds_, rate_));
    start(0);
    clip_->duration(&length);
    clip_->dataDefinition(source.dataDefinition());
}

void ClipData::start(Int64 editUnits)
{
    Types::Position const position(editUnits);
    clip_->startPosition(&position);
}

// It is looked up each time: the application may have changed the track.
Sequence & ClipData::sourceSequence() const
{
    Sequence * const sequence = track_.sequence();
    VANTRY_CHECK_TEXT(sequence != nullptr, "sequence_ != 0", InvalidFormat, "Track has no sequence");
    VANTRY_CHECK_TEXT(sequence->dataDefinition() != nullptr, "sequence_ -> dataDefinition () != 0", InvalidFormat,
                      "Sequence has no data definition");
    return *sequence;
}

Seconds ClipData::secondsOfSource() const
{
    Types::Rational const * const rate = track_.editRate();
    VANTRY_CHECK_TEXT(rate != nullptr, "track_ -> editRate () != 0", InvalidFormat, "Track has no edit rate");
    VANTRY_CHECK_TEXT(rate->numerator() != 0, "originalEditRate.numerator () != 0", InvalidFormat,
                      "Track edit rate is 0");

    Seconds sum;
    Sequence const & sequence = sourceSequence();
    for (unsigned int i = 0; i < sequence.structuralComponentsCount(); ++i)
    {
        auto const * const clip = dynamic_cast<SourceClip *>(sequence.structuralComponent(i));
        VANTRY_CHECK(clip != 0, InvalidFormat,
                     "The sequence contains a Structural Component that is not a Source Clip.");
        Types::Length const * const duration = clip->duration();
        if (duration == nullptr || duration->value() < 0)
            return unknownSeconds();
        sum += secondsOf(duration->value(), {rate->numerator(), rate->denominator()});
    }
    return sum;
}

SubClipData::SubClipData(ProxyBase const & base, GenericPackage & package, TimelineTrack & track, Rate const & rate,
                         Int64 start, Int64 length) :
    ClipData(base, package, track, rate), start_(start)
{
    ClipData::setDuration(length);
}

SubClipData::~SubClipData() = default;

void SubClipData::update()
{
    ClipData::update();
    start(start_);
}

}}

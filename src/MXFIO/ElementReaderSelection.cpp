#include "MXFIO/ElementReaderSelection.h"

#include "Exceptions/BrokenLink.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidElement.h"
#include "Exceptions/NotFound.h"
#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/CustomElementReaderFactory.h"
#include "MXFIO/ElementEssenceReader.h"
#include "MXFIO/ElementEssenceReaderClipWrap.h"
#include "MXFIO/ElementEssenceReaderClipWrapEmulated.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/RateOf.h"
#include "MXFIO/Seeker.h"
#include "MXFIO/UnitScale.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/PackageHelpers.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/UInt32.h"

#include <algorithm>

namespace Vantry { namespace MXFIO {

namespace {

using Metadata::Structural::TimelineTrack;
using Ratio = Templates::Rational<Int64>;

Int64 originOf(TimelineTrack const & track, Ratio const & rate)
{
    Int64 const origin = track.origin() != nullptr ? std::max<Int64>(track.origin()->value(), 0) : 0;
    return origin == 0 ? 0 : UnitScale(rate / rateOf(track.editRate())).nearest(origin);
}

}

ElementReaderSelection::ElementReaderSelection(ContentStorageReader & reader,
                                               Metadata::Structural::SourcePackage const * package,
                                               Templates::SharedPtr<ContentStorageProfile> const & profile) :
    reader_(reader), package_(package), profile_(profile)
{
}

Templates::auto_ptr<ElementReader> ElementReaderSelection::make(unsigned int trackID, Wish const & wish)
{
    TimelineTrack const & track = findTrack(trackID);
    checkDuration(track);
    unsigned int const trackNumber = trackNumberOf(track);
    Ratio const wishedRate = rateOf(&wish.editRate);
    Ratio const trackRate = !wishedRate ? rateOf(track.editRate()) : wishedRate;

    CustomElementReaderFactory * const factory = profile_ ? profile_->customElementReaderFactory() : nullptr;
    Templates::auto_ptr<ElementReader> custom;
    if (factory != nullptr)
        custom = factory->elementReader(trackNumber, trackRate, reader_.unitRate(), reader_, wish.startPosition,
                                        wish.duration);
    if (custom)
        return custom;

    BaseElementEssenceReader::Clip const clip = {
        trackID,      trackNumber,        fileDescriptorForTrack(*package_, trackID),
        trackRate,    wish.startPosition, originOf(track, trackRate),
        wish.duration};
    if (!reader_.isClipWrapped())
        return Templates::auto_ptr<ElementReader>(new ElementEssenceReader(reader_, clip));
    if (wish.emulateFrameWrapping)
        return Templates::auto_ptr<ElementReader>(new ElementEssenceReaderClipWrapEmulated(reader_, clip));
    return Templates::auto_ptr<ElementReader>(new ElementEssenceReaderClipWrap(reader_, clip));
}

TimelineTrack const & ElementReaderSelection::findTrack(unsigned int trackID) const
{
    VANTRY_CHECK_TEXT(package_ != nullptr, "sourcePackage != 0", BrokenLink, "Source package not found.");
    auto const * const track = dynamic_cast<TimelineTrack const *>(package_->track(Types::UInt32(trackID)));
    VANTRY_CHECK_TEXT(track != nullptr, "track != 0", NotFound, "Track not found.");
    VANTRY_CHECK_TEXT(!!rateOf(track->editRate()), "editRate != 0", InvalidElement, "Track with invalid editRate");
    VANTRY_CHECK_TEXT(track->sequence() != nullptr, "sequence != 0", InvalidElement,
                      "Sequence not present in track.");
    return *track;
}

// A track that the package outruns is refused.
void ElementReaderSelection::checkDuration(TimelineTrack const & track) const
{
    Types::Length const * const length = track.sequence()->duration();
    Ratio const seconds = packageDurationInSeconds(*package_);
    if (reader_.isClipWrapped() || length == nullptr || length->value() <= 0 || seconds <= 0)
        return;

    Ratio const sourcePackageDuration = seconds2EditUnits(seconds, rateOf(track.editRate()));
    VANTRY_CHECK_TEXT(sourcePackageDuration - Ratio(length->value()) < Ratio(1),
                      "(sourcePackageDuration - trackDurationRational) < 1", InvalidElement,
                      "duration with bad value.");
}

unsigned int ElementReaderSelection::trackNumberOf(TimelineTrack const & track) const
{
    VANTRY_CHECK_TEXT(track.trackNumber() != nullptr, "trackNumber != 0", NotFound, "Track Number not found.");
    unsigned int const trackNumberValue = track.trackNumber()->value();
    VANTRY_CHECK_TEXT(reader_.seeker().trackNumberExists(trackNumberValue),
                      "seeker_ -> trackNumberExists (trackNumberValue)", NotFound,
                      "Track Number not found in this content Storage.");
    return trackNumberValue;
}

}}

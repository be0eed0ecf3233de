#include "MXFIO/EssenceReader.h"

#include "DataIO/RandomAccessDataSource.h"
#include "DataIO/StreamingDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidStructure.h"
#include "Exceptions/InvalidValue.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/ElementReader.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/FileOrder.h"
#include "MXFIO/PackageContainers.h"
#include "MXFIO/PackageTrack.h"
#include "MXFIO/RateOf.h"
#include "MXFIO/Reader2.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/PackageHelpers.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"
#include "Types/UniversalLabel.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

using Metadata::Structural::GenericPackage;
using Metadata::Structural::Preface;
using Metadata::Structural::Sequence;
using Metadata::Structural::SourceClip;
using Metadata::Structural::TimelineTrack;
using Profile = Templates::SharedPtr<ContentStorageProfile>;
using Time = Templates::Rational<Int64>;

Int64 const UNKNOWN = -1;

// The longest period that both are multiples of. One of 0 counts for nothing.
Time commonPeriod(Time const & left, Time const & right)
{
    Int64 denominator = 0;
    bool const isTooLarge = __builtin_mul_overflow(
        left.denominator() / std::gcd(left.denominator(), right.denominator()), right.denominator(), &denominator);
    VANTRY_CHECK(!isTooLarge, InvalidValue, "Edit rates of the tracks have no common period.");
    return Time(std::gcd(left.numerator(), right.numerator()), denominator);
}

bool isEssence(Sequence const & sequence, Profile const & profile)
{
    Types::UniversalLabel const * const dataDefinition = sequence.dataDefinition();
    return dataDefinition != nullptr && isDataDefinitionEssence(*dataDefinition, profile);
}

template <class Number>
Int64 valueOf(Number const * number, Int64 otherwise)
{
    return number != nullptr ? static_cast<Int64>(number->value()) : otherwise;
}

// Edit units of a clip, -1 when they aren't known. A track that is still being
// written may have a length of 0.
Int64 lengthOf(SourceClip const & clip, Sequence const & sequence)
{
    Int64 const length = valueOf(clip.duration(), UNKNOWN);
    bool const isOnly = sequence.structuralComponentsCount() == 1;
    if (length > 0 || (length == 0 && !isOnly))
        return length;

    Int64 const ofSequence = isOnly ? valueOf(sequence.duration(), UNKNOWN) : UNKNOWN;
    return ofSequence > 0 ? ofSequence : UNKNOWN;
}

SourceClip const & clipOf(Sequence const & sequence, unsigned int index)
{
    auto const * const clip = dynamic_cast<SourceClip const *>(sequence.structuralComponent(index));
    VANTRY_CHECK_TEXT(clip != nullptr, "clip != 0", InvalidStructure, "Package contains a invalid clip in the track.");
    return *clip;
}

// Edit units of a container in seconds; -1/1 when they aren't known.
Time inSeconds(Time const & editUnits, ContentStorageReader const & container)
{
    Time const rate = container.editRate();
    return editUnits < 0 || !rate ? Time(UNKNOWN) : editUnits2Seconds(editUnits, rate);
}

// What a package has to be played: its tracks and their clips.
class PackageWalk
{
public:
    PackageWalk(GenericPackage const & package, PackageContainers & containers, bool inPieces,
                Profile const & profile) :
        package_(package),
        containers_(containers),
        isMaterial_(dynamic_cast<Metadata::Structural::MaterialPackage const *>(&package) != nullptr),
        inPieces_(inPieces),
        profile_(profile)
    {
    }

    void takeTracks()
    {
        Templates::list<TimelineTrack *> all;
        getAllTimelineTracks(package_, all);
        for (TimelineTrack const * const track : all)
            if (track->sequence() != nullptr && isEssence(*track->sequence(), profile_) && !!rateOf(track->editRate()))
                takeTrack(*track);
    }

    Templates::vector<PackageTrack> tracks;
    Time period;

private:
    void takeTrack(TimelineTrack const & track)
    {
        period = commonPeriod(period, Time(1) / rateOf(track.editRate()));
        tracks.emplace_back(track, static_cast<unsigned int>(valueOf(track.trackID(), 0)));

        Sequence const & sequence = *track.sequence();
        Int64 start = 0;
        for (unsigned int i = 0; i < sequence.structuralComponentsCount(); ++i)
        {
            SourceClip const & clip = clipOf(sequence, i);
            Int64 const length = lengthOf(clip, sequence);
            takeClip(clip, start, length);
            if (start >= 0 && (length < 0 || __builtin_add_overflow(start, length, &start)))
                start = UNKNOWN;
        }
        tracks.back().length(start > 0 ? Time(start) / rateOf(track.editRate()) : Time(UNKNOWN));
    }

    // Adds a clip to the last track, if its essence is in the file.
    void takeClip(SourceClip const & clip, Int64 start, Int64 length)
    {
        ContentStorageReader * const container =
            containers_.container(isMaterial_ ? clip.sourcePackageUID() : package_.packageUID());
        if (container == nullptr)
            return;

        PackageTrack & track = tracks.back();
        Types::Rational const & editRate = *track.track().editRate();
        Int64 const sourceTrack = isMaterial_ ? valueOf(clip.sourceTrack(), 0) : track.trackID();
        Int64 const sourceStart = isMaterial_ ? valueOf(clip.startPosition(), 0) : start;
        Time const time = start >= 0 ? Time(start) / rateOf(&editRate) : Time(UNKNOWN);
        track.clips().emplace_back(track.clips().empty() && start < 0 ? Time() : time,
                                   PackageClip::Stretch{container, static_cast<unsigned int>(sourceTrack), sourceStart,
                                                        length, editRate, inPieces_});
    }

    GenericPackage const & package_;
    PackageContainers & containers_;
    bool const isMaterial_;
    bool const inPieces_;
    Profile const & profile_;
};

// Tracks of which the file has nothing stay behind the others.
bool isAheadOf(PackageTrack const & left, PackageTrack const & right)
{
    if (left.clips().empty() || right.clips().empty())
        return !left.clips().empty() && right.clips().empty();
    return left.clips().front().reader().trackNumber() < right.clips().front().reader().trackNumber();
}

}

class EssenceReader::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Reader & reader, Preface const & preface, GenericPackage const & thePackage, bool loadRIP, bool inPieces,
         Profile const & theProfile);

    bool seek(Time const & time);
    bool next(UInt64 searchLimit, ElementEditUnit & unit);
    bool handle(IndexTableHandlingMode theMode);
    bool takeMasterRate(Types::Rational const & rate);
    void refresh();

    Time duration() const;
    Time position() const;

    GenericPackage const & package;
    PackageContainers containers;
    Templates::vector<PackageTrack> tracks;
    IndexTableHandlingMode mode = INDEX_TABLE_USED;

private:
    void masterEditPeriod(Time const & period);
    bool nextInTurn(UInt64 searchLimit, ElementEditUnit & unit);
    PackageTrack * trackWithTurn();
    bool isGrowing() const;
    bool isInFileOrder() const;

    Reader & reader_;
    Time masterEditPeriod_;
};

EssenceReader::Impl::Impl(Reader & reader, Preface const & preface, GenericPackage const & thePackage, bool loadRIP,
                          bool inPieces, Profile const & profile) :
    package(thePackage), containers(reader, preface.contentStorage(), loadRIP, profile), reader_(reader)
{
    PackageWalk walk(package, containers, inPieces, profile);
    walk.takeTracks();
    VANTRY_CHECK_TEXT(!!walk.period, "!(masterEditPeriod_ == 0)", InvalidValue,
                      "Package does not have valid Essence Tracks.");

    tracks = std::move(walk.tracks);
    std::stable_sort(tracks.begin(), tracks.end(), isAheadOf);
    masterEditPeriod(walk.period);
    seek(0);
}

void EssenceReader::Impl::masterEditPeriod(Time const & period)
{
    masterEditPeriod_ = period;
    for (PackageTrack & track : tracks)
        track.turnsPerSecond(Time(1) / period);
}

bool EssenceReader::Impl::isInFileOrder() const
{
    // One packet is in order by itself.
    return mode != INDEX_TABLE_USED && !containers.first()->isClipWrapped();
}

bool EssenceReader::Impl::seek(Time const & time)
{
    if (time.numerator() < 0)
        return false;

    bool areReached = true;
    for (PackageTrack & track : tracks)
        areReached &= track.seek(time);

    // Where elements are isn't known without an index.
    for (ContentStorageReader * const container : containers.all())
        if (!container->isClipWrapped() && (isInFileOrder() || !container->isSeekExact()))
            areReached &= FileOrder(*container, tracks).goToEarliest();
    return areReached;
}

bool EssenceReader::Impl::next(UInt64 searchLimit, ElementEditUnit & unit)
{
    unit = ElementEditUnit();
    return isInFileOrder() ? FileOrder(*containers.first(), tracks).next(searchLimit, unit)
                           : nextInTurn(searchLimit, unit);
}

bool EssenceReader::Impl::nextInTurn(UInt64 searchLimit, ElementEditUnit & unit)
{
    while (PackageTrack * const track = trackWithTurn())
    {
        if (track->next(searchLimit, unit))
            return true;

        // None goes ahead of one whose essence is yet to be written.
        if (track->isEnded() && isGrowing() && track->resume())
            return false;
    }
    return false;
}

bool EssenceReader::Impl::isGrowing() const
{
    auto * const reader2 = dynamic_cast<Reader2 *>(&reader_);
    return dynamic_cast<DataIO::StreamingDataSource *>(&reader_.source()) != nullptr &&
           (reader2 == nullptr || reader2->footerPartition() == nullptr);
}

// The first of the tracks that are furthest behind; null when all have ended.
PackageTrack * EssenceReader::Impl::trackWithTurn()
{
    PackageTrack * first = nullptr;
    for (PackageTrack & track : tracks)
        if (!track.isEnded() && (first == nullptr || track.turn() < first->turn()))
            first = &track;
    return first;
}

bool EssenceReader::Impl::handle(IndexTableHandlingMode theMode)
{
    if (theMode != INDEX_TABLE_USED && containers.all().size() != 1)
        return false;

    mode = theMode;
    seek(position());
    return true;
}

bool EssenceReader::Impl::takeMasterRate(Types::Rational const & rate)
{
    VANTRY_CHECK_TEXT(rateOf(&rate) > 0, "editRate > 0", InvalidValue, "Edit rate non-greater than zero.");
    for (PackageTrack & track : tracks)
        for (PackageClip & clip : track.clips())
            if (!clip.makePieces(rate))
                return false;

    Time const time = position();
    for (PackageTrack & track : tracks)
        for (PackageClip & clip : track.clips())
            clip.takePieces();
    masterEditPeriod(Time(1) / rateOf(&rate));
    seek(time);
    return true;
}

void EssenceReader::Impl::refresh()
{
    for (ContentStorageReader * const container : containers.all())
        container->refreshSource();
    for (PackageTrack & track : tracks)
        track.resume();
}

Time EssenceReader::Impl::duration() const
{
    ContentStorageReader * const container = containers.first();
    Time const ofContainer = container != nullptr ? inSeconds(container->duration(), *container) : Time(UNKNOWN);
    Time longest = UNKNOWN;
    for (PackageTrack const & track : tracks)
    {
        if (track.length() < 0)
            return ofContainer;
        longest = std::max(longest, track.length());
    }
    return container != nullptr && container->isStreaming() ? ofContainer : longest;
}

Time EssenceReader::Impl::position() const
{
    Time first = UNKNOWN;
    Time last;
    for (PackageTrack const & track : tracks)
    {
        last = std::max(last, track.position());
        if (!track.isEnded() && (first < 0 || track.position() < first))
            first = track.position();
    }
    return first < 0 ? last : first;
}

EssenceReader::EssenceReader(Reader & reader, Preface const & preface, GenericPackage const & package, bool loadRIP,
                             bool emulateFrameWrapping, Profile const & profile) :
    impl_(new Impl(reader, preface, package, loadRIP, emulateFrameWrapping, profile))
{
}

EssenceReader::~EssenceReader()
{
    delete impl_;
}

GenericPackage const & EssenceReader::package() const
{
    return impl_->package;
}

Time EssenceReader::duration() const
{
    return impl_->duration();
}

Time EssenceReader::indexableDuration() const
{
    ContentStorageReader * const container = impl_->containers.first();
    return container != nullptr ? inSeconds(container->indexableDuration(), *container) : Time(UNKNOWN);
}

Time EssenceReader::position() const
{
    return impl_->position();
}

Templates::vector<TimelineTrack const *> EssenceReader::essenceTracks() const
{
    Templates::vector<TimelineTrack const *> tracks;
    for (PackageTrack const & track : impl_->tracks)
        tracks.push_back(&track.track());
    return tracks;
}

Templates::vector<unsigned int> EssenceReader::essenceTrackIDs() const
{
    Templates::vector<unsigned int> identifiers;
    for (PackageTrack const & track : impl_->tracks)
        identifiers.push_back(track.trackID());
    return identifiers;
}

IndexTableHandlingMode EssenceReader::indexTableHandlingMode() const
{
    return impl_->mode;
}

bool EssenceReader::indexTableHandlingMode(IndexTableHandlingMode mode)
{
    return impl_->handle(mode);
}

void EssenceReader::registerKLVPacketListener(SystemItemKLVPacketListener * listener)
{
    for (ContentStorageReader * const container : impl_->containers.all())
        container->registerKLVPacketListener(listener);
}

void EssenceReader::unregisterKLVPacketListener()
{
    for (ContentStorageReader * const container : impl_->containers.all())
        container->unregisterKLVPacketListener();
}

bool EssenceReader::changeMasterEditRate(Templates::Rational<int> const & editRate)
{
    return impl_->takeMasterRate(Types::Rational(editRate.numerator(), editRate.denominator()));
}

void EssenceReader::setContentStorageProfile(Profile const & profile)
{
    impl_->containers.setContentStorageProfile(profile);
}

bool EssenceReader::rewind()
{
    return impl_->seek(0);
}

bool EssenceReader::seek(Time const & seconds)
{
    return impl_->seek(seconds);
}

bool EssenceReader::nextElementEditUnit(UInt64 searchLimit, ElementEditUnit & unit)
{
    return impl_->next(searchLimit, unit);
}

void EssenceReader::refreshSource()
{
    impl_->refresh();
}

}}

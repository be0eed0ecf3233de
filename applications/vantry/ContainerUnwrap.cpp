#include "ContainerUnwrap.h"

#include "BlockSource.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "MXFIO/EssenceUtils.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace Application {

namespace {

// Of the four bytes of a number: item, count of elements, kind, number of the
// element.
int const ITEM = 12;
unsigned const ALL_BUT_COUNT = 0xFF00FFFF;

/// Items of the Generic Container have the same low digit as those of the
/// older SDTI content package; private keys tell nothing.
bool isOfKind(KLV::Key const & key, std::string const & kind)
{
    if (!KLV::isEssence(key))
        return true;
    int const item = key[ITEM] & 0x0F;
    return kind == "picture" ? item == 5 || item == 8 : kind == "sound" ? item == 6 : item == 7;
}

bool isOfSystemItem(KLV::Key const & key)
{
    return KLV::isEssence(key) && (key[ITEM] & 0x0F) == 4;
}

/// Whether numbers are the same, or differ in the count of elements alone.
bool areAlike(unsigned a, unsigned b)
{
    return ((a ^ b) & ALL_BUT_COUNT) == 0;
}

UInt64 saturatedSum(UInt64 a, UInt64 b)
{
    return a > std::numeric_limits<UInt64>::max() - b ? std::numeric_limits<UInt64>::max() : a + b;
}

}

ContainerUnwrap::ContainerUnwrap(EssenceContainer const & container, ContainerSurvey const & survey,
                                 EditUnitRange const & range, Tracks tracks) :
    bodySID_(container.bodySID), duration_(survey.duration), range_(range), tracks_(std::move(tracks))
{
    for (EssenceTrack const & track : container.tracks)
        trackNumbers_.push_back(track.trackNumber);
    unsigned const number = trackNumbers_.front();
    isOnlyTrack_ =
        container.tracks.size() == 1 && !(survey.firstKey && MXFIO::key2TrackNumber(*survey.firstKey) == number);
}

UnwrappedTrack * ContainerUnwrap::trackOf(KLV::Packet const & packet)
{
    unsigned const number = MXFIO::key2TrackNumber(packet.key());
    for (auto const & track : tracks_)
        if (track->track().trackNumber == number)
            return track.get();
    for (auto const & track : tracks_)
        if (areAlike(track->track().trackNumber, number))
            return track.get();

    // Some writers don't number the only track, or not as its elements.
    bool const isAnyOfKind = isOnlyTrack_ && isOfKind(packet.key(), tracks_.front()->track().kind);
    if (isAnyOfKind)
        return tracks_.front().get();

    bool const isOfOther = std::any_of(trackNumbers_.begin(), trackNumbers_.end(),
                                       [number](unsigned other) { return areAlike(other, number); });
    if (!strayNumber_ && !isOfOther && !isOfSystemItem(packet.key()))
        strayNumber_ = number;
    return nullptr;
}

std::optional<UInt64> ContainerUnwrap::missing(bool isDamaged) const
{
    if (!isCounted_ || (!duration_ && range_.end == std::numeric_limits<Int64>::max()))
        return std::nullopt;
    Int64 const wanted = std::min(range_.end, duration_.value_or(range_.end)) - range_.begin;

    std::optional<UInt64> complete;
    for (auto const & track : tracks_)
        if (track->editUnits() != 0 || isDamaged)
            complete = std::min(complete.value_or(track->editUnits()), track->editUnits());
    return UInt64(std::max<Int64>(wanted, 0)) - std::min(UInt64(std::max<Int64>(wanted, 0)), complete.value_or(0));
}

FrameUnwrap::FrameUnwrap(EssenceContainer const & container, ContainerSurvey const & survey,
                         EditUnitRange const & range, Tracks tracks, UInt64 start, Int64 editUnit) :
    ContainerUnwrap(container, survey, range, std::move(tracks)),
    firstKey_(survey.firstKey),
    start_(start),
    editUnit_(editUnit - 1)
{
}

void FrameUnwrap::take(KLV::Packet const & packet, BlockSource & source)
{
    if (packet.keyAbsoluteOffset() < start_)
        return;
    if (!firstKey_)
        firstKey_ = packet.key();
    if (packet.key() == *firstKey_)
        ++editUnit_;
    if (editUnit_ >= range().end)
        return isDone(true);
    if (editUnit_ < range().begin)
        return;

    // Of an element that is cut off nothing is taken: half a picture is none.
    UnwrappedTrack * const track = trackOf(packet);
    if (track == nullptr || packet.length() > source.remaining())
        return;
    track->take(source, packet.length());
    track->countEditUnit(editUnit_);
}

/// Where edit units lie in a clip.
class ClipUnwrap::Measure
{
public:
    Measure(ContainerSurvey const & survey, EssenceTrack const & track, KLV::Packet const & clip) :
        index_(*survey.index), duration_(survey.duration), length_(clip.length()), isData_(track.kind == "data")
    {
        size_ = index_.editUnitSize();
        if (size_ == 0 && !index_.offset(0))
            size_ = sizeWithoutIndex(survey.editRate, track.sound);
        // Some writers count from the key of the clip on, others from its
        // value.
        UInt64 const head = clip.klvLength() - clip.length();
        if (size_ == 0 && index_.offset(0) == head)
            head_ = head;
    }

    /// Where an edit unit begins in the clip.
    std::optional<UInt64> offset(Int64 editUnit) const
    {
        if (editUnit == 0)
            return 0;
        if (size_ != 0 && UInt64(editUnit) <= length_ / size_)
            return UInt64(editUnit) * size_;
        if (duration_ && editUnit >= *duration_)
            return length_;
        if (size_ != 0)
            return std::nullopt;
        std::optional<UInt64> const offset = index_.offset(editUnit);
        return offset && *offset >= head_ ? std::optional<UInt64>(*offset - head_) : std::nullopt;
    }

    /// How many edit units end within so many bytes; nothing when that can't
    /// be told.
    std::optional<Int64> editUnits(UInt64 bytes) const
    {
        if (size_ != 0)
            return static_cast<Int64>(bytes / size_);
        // Text for all of the duration is often indexed as a single edit unit.
        if (!index_.offset(0) || (isData_ && bytes == length_))
            return bytes == length_ ? duration_ : std::nullopt;

        // The last one that the index has ends with the clip.
        Int64 const begun = firstBeyond(bytes);
        return begun > 0 && bytes < length_ ? begun - 1 : begun;
    }

private:
    /// The first edit unit that begins behind so many bytes, or isn't known.
    Int64 firstBeyond(UInt64 bytes) const
    {
        Int64 first = 0;
        for (Int64 end = std::numeric_limits<Int32>::max(); first < end;)
        {
            Int64 const middle = first + (end - first) / 2;
            std::optional<UInt64> const offset = index_.offset(middle);
            if (offset && *offset < saturatedSum(head_, bytes))
                first = middle + 1;
            else
                end = middle;
        }
        return first;
    }

    UInt64 sizeWithoutIndex(Templates::Rational<Int64> const & editRate, SoundFormat const & sound) const
    {
        if (sound.frameSize() != 0 && editRate > 0 && editRate.numerator() <= std::numeric_limits<Int32>::max())
        {
            Int64 const second = Int64(sound.frameSize()) * sound.samplesPerSecond;
            if (editRate.denominator() <= std::numeric_limits<Int16>::max() &&
                second * editRate.denominator() % editRate.numerator() == 0)
                return UInt64(second * editRate.denominator() / editRate.numerator());
        }

        // Edit units that differ in size hardly ever come to a multiple.
        bool const isConstant = duration_ && *duration_ > 0 && length_ % UInt64(*duration_) == 0;
        return isConstant ? length_ / UInt64(*duration_) : 0;
    }

    EditUnitIndex & index_;
    std::optional<Int64> duration_;
    UInt64 length_;
    bool isData_;
    UInt64 size_ = 0;
    UInt64 head_ = 0;
};

ClipUnwrap::ClipUnwrap(EssenceContainer const & container, ContainerSurvey survey, EditUnitRange const & range,
                       Tracks tracks) :
    ContainerUnwrap(container, survey, range, std::move(tracks)), survey_(std::move(survey))
{
}

void ClipUnwrap::take(KLV::Packet const & packet, BlockSource & source)
{
    UnwrappedTrack * const track = trackOf(packet);
    if (track == nullptr || (track_ != nullptr && track != track_))
        return;
    track_ = track;
    if (!measure_)
        start(packet);

    UInt64 const there = std::min(packet.length(), source.remaining());
    UInt64 const begin = std::max(begin_, position_);
    UInt64 end = std::min(end_, saturatedSum(position_, there));
    if (there < packet.length())
        end = wholeSamples(end);

    if (begin < end)
    {
        source.skip(begin - position_);
        deliver(source, begin, end);
        reached_ = end;
    }
    position_ = saturatedSum(position_, packet.length());
    isDone(position_ >= end_);
}

// What lies behind the last edit unit that can be found goes with it.
void ClipUnwrap::start(KLV::Packet const & packet)
{
    measure_ = std::make_shared<Measure>(survey_, track_->track(), packet);
    std::optional<UInt64> const begin = measure_->offset(range().begin);
    bool const isOpen = range().end == std::numeric_limits<Int64>::max();
    if (!begin)
        return;
    begin_ = *begin;
    end_ = isOpen ? std::numeric_limits<UInt64>::max() : measure_->offset(range().end).value_or(packet.length());
}

UInt64 ClipUnwrap::wholeSamples(UInt64 end) const
{
    unsigned const frame = track_->track().sound.frameSize();
    return frame != 0 && end > begin_ ? end - (end - begin_) % frame : end;
}

/// Pictures that go to a file each are parted where edit units begin.
void ClipUnwrap::deliver(BlockSource & source, UInt64 begin, UInt64 end)
{
    if (track_->track().form == EssenceForm::JPEG_2000)
        for (Int64 editUnit = range().begin + 1; begin < end; ++editUnit)
        {
            std::optional<UInt64> const next = measure_->offset(editUnit);
            if (!next || *next <= begin || *next >= end)
                break;
            track_->take(source, *next - begin);
            begin = *next;
        }
    track_->take(source, end - begin);
}

void ClipUnwrap::end()
{
    if (track_ == nullptr || reached_ == 0)
        return;
    std::optional<Int64> const editUnits = measure_->editUnits(reached_);
    isCounted(editUnits.has_value());
    if (editUnits && *editUnits > range().begin)
        track_->countEditUnits(UInt64(*editUnits - range().begin));
}

}}

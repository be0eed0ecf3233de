#include "IndexTables/IndexTableSegmentWithGOPInfo.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidIndexSegment.h"
#include "Exceptions/NotImplemented.h"
#include "IndexTables/IndexEntry.h"
#include "IndexTables/IndexEntryArray.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace IndexTables {

namespace {

Int64 const UNKNOWN = -1;
Int64 const LARGEST_DISTANCE = std::numeric_limits<signed char>::max();

// How far a temporal offset reaches.
Int64 const REACH = 128;

bool startsGroup(IndexEntry const & entry)
{
    return !entry.forwardPrediction() && !entry.backwardPrediction();
}

signed char distance(Int64 editUnits)
{
    return static_cast<signed char>(std::min(editUnits, LARGEST_DISTANCE));
}

bool hasEntryForEachEditUnit(IndexTableSegment const & segment)
{
    IndexEntryArray const * const entries = segment.indexEntryArray();
    return entries && Int64(entries->size()) == segment.indexDuration().value();
}

// Whether one segment starts where the other ends. Both numbers are claims,
// so the sum may wrap.
bool adjoin(IndexTableSegment const & left, IndexTableSegment const & right)
{
    UInt64 const end = UInt64(left.indexStartPosition().value()) + UInt64(left.indexDuration().value());
    return end == UInt64(right.indexStartPosition().value());
}

char const * const NOT_CONSECUTIVE = "Trying to update non-consecutive IndexTableSegmentWithGOPInfo's.";

}

// The groups of a segment. Edit units are counted from its start.
class IndexTableSegmentWithGOPInfo::Groups
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Groups(IndexTableSegment const & segment) :
        infos(segment.indexEntryCount(), {UNKNOWN, UNKNOWN, UNKNOWN, UNKNOWN}), segment_(segment)
    {
        IndexEntryArray const * const entries = segment.indexEntryArray();
        bool closed = true;
        for (Int64 i = 0; i < count(); ++i)
        {
            IndexEntry const & entry = entries->at(static_cast<UInt32>(i));
            if (startsGroup(entry))
            {
                endGroup(i, closed);
                startGroup(i);
                closed = true;
            }
            else if (entry.keyFrameOffset() < lastStart_ - i)
                closed = false;

            at(i).gopIndex = nextGroup();
            if (hasStart())
                place(i, i - lastStart_, entry);
        }
        endGroup(count(), closed);
    }

    // Tells two adjoining segments what they know of the groups that they
    // share.
    static void link(Groups & left, Groups & right)
    {
        if (left.infos.empty() || right.infos.empty())
            return;
        GOPInfo const & lastInfoFromPrevious = left.infos.back();
        VANTRY_CHECK(lastInfoFromPrevious.gopPosition >= 0, NotImplemented,
                     "Not supported: IndexTableSegment duration is smaller than GOP length.");

        // The number that the first group of `right` has in `left`.
        bool const cut = right.leading() != 0;
        Int32 const shift = lastInfoFromPrevious.gopIndex + (cut ? 0 : 1);
        if (cut)
            joinGroup(left, right);
        for (Int64 i = std::max<Int64>(0, left.count() - REACH); i < left.count(); ++i)
            right.showFrom(left, i, left.shownAt(i) - left.count(), -shift);
        for (Int64 i = 0; i < std::min(right.count(), REACH); ++i)
            left.showFrom(right, i, right.shownAt(i) + left.count(), shift);
    }

    Templates::vector<GOPInfo> infos;
    Templates::map<int, GOPStructuralInfo> sizes;

private:
    Int64 count() const { return static_cast<Int64>(infos.size()); }
    bool hasStart() const { return lastStart_ != UNKNOWN; }
    IndexEntry const & entryAt(Int64 index) const { return segment_.indexEntry(static_cast<UInt32>(index)); }
    GOPInfo & at(Int64 index) { return infos[static_cast<std::size_t>(index)]; }

    // Edit units ahead of the first start of a group.
    Int64 leading() const { return hasStart() ? firstStart_ : count(); }

    // Edit units of the last group up to the end of the segment.
    Int64 trailing() const { return hasStart() ? count() - lastStart_ : count() + sizeBefore_; }

    // Where the picture that is stored at `index` is shown.
    Int64 shownAt(Int64 index) const { return index + entryAt(index).temporalOffset(); }

    int nextGroup() const { return static_cast<int>(sizes.size()); }

    void startGroup(Int64 index)
    {
        if (!hasStart())
            firstStart_ = index;
        lastStart_ = index;
    }

    void endGroup(Int64 end, bool closed)
    {
        Int64 const size = end - std::max<Int64>(0, lastStart_);
        if (size != 0)
            sizes.insert(sizes.end(), {nextGroup(), {static_cast<UInt32>(size), closed}});
    }

    // Gives a picture its place in its group and, if it is shown in this
    // segment, tells it there.
    void place(Int64 index, Int64 position, IndexEntry const & entry)
    {
        at(index).gopPosition = distance(position);
        Int64 const shown = index + entry.temporalOffset();
        if (shown >= 0 && shown < count())
            show(at(index), shown, 0);
    }

    void show(GOPInfo const & info, Int64 index, Int32 shift)
    {
        at(index).temporalGopPosition = info.gopPosition;
        at(index).temporalGopIndex = info.gopIndex + shift;
    }

    // Shows a picture that another segment stores, if it is shown in this one.
    void showFrom(Groups & other, Int64 stored, Int64 shown, Int32 shift)
    {
        GOPInfo const & info = other.at(stored);
        if (info.gopPosition < 0 || shown < 0 || shown >= count())
            return;
        show(info, shown, shift);
        sizes[info.gopIndex + shift] = other.sizes[info.gopIndex];
    }

    // Joins the last group of `left` to what `right` has ahead of its first
    // start.
    static void joinGroup(Groups & left, Groups & right)
    {
        right.sizeBefore_ = left.trailing();
        left.sizeBehind_ = right.leading() + (right.hasStart() ? 0 : right.sizeBehind_);

        bool const closed = right.placeLeading();
        GOPStructuralInfo & group = left.sizes[left.infos.back().gopIndex];
        group.size = static_cast<UInt32>(left.trailing() + left.sizeBehind_);
        group.closed = group.closed && closed;
        right.sizes[0] = group;
    }

    // Places what is ahead of the first start; returns whether none of it
    // depends on a picture ahead of its group.
    bool placeLeading()
    {
        bool closed = true;
        for (Int64 i = 0; i < leading(); ++i)
        {
            Int64 const position = sizeBefore_ + i;
            IndexEntry const & entry = entryAt(i);
            place(i, position, entry);
            closed = closed && entry.keyFrameOffset() >= -position;
        }
        return closed;
    }

    IndexTableSegment const & segment_;
    Int64 firstStart_ = UNKNOWN;
    Int64 lastStart_ = UNKNOWN;

    // Edit units of the first group in segments before, and of the last group
    // in segments behind this one.
    Int64 sizeBefore_ = 0;
    Int64 sizeBehind_ = 0;
};

IndexTableSegmentWithGOPInfo::IndexTableSegmentWithGOPInfo(KLV::Packet & packet, IndexTableSegmentListener * listener) :
    IndexTableSegment(packet, listener), groups_(new Groups(*this))
{
}

IndexTableSegmentWithGOPInfo::~IndexTableSegmentWithGOPInfo()
{
    delete groups_;
}

GOPInfo const & IndexTableSegmentWithGOPInfo::gopInfo(unsigned int index) const
{
    VANTRY_CHECK_TEXT(index < groups_->infos.size(), "index < gopInfoVector_.size ()", IndexOutOfBounds,
                      "The IndexTableSegment is smaller than the given index.");
    return groups_->infos[index];
}

Templates::map<int, GOPStructuralInfo> const & IndexTableSegmentWithGOPInfo::gopIndex2SizeMap() const
{
    return groups_->sizes;
}

void IndexTableSegmentWithGOPInfo::updateMissingIndex(unsigned int index,
                                                      IndexTableSegmentWithGOPInfo const * segment) const
{
    Int64 const duration = segment->indexDuration().value();
    if (index >= groups_->infos.size() || index >= duration)
        return;
    if (segment->indexStartPosition().value() == 0 && index == 0)
        return;

    GOPInfo & info = groups_->infos[index];
    Int64 const behind = std::min(duration - index, 2 * REACH); // more never fits
    Int64 const position = info.gopPosition + behind;
    if (position <= LARGEST_DISTANCE)
        info.temporalGopPosition = static_cast<signed char>(position);
}

void IndexTableSegmentWithGOPInfo::updateMissingInfo(IndexTableSegmentWithGOPInfo const * previous,
                                                     IndexTableSegmentWithGOPInfo const * next) const
{
    if (groups_->infos.empty())
        return;

    bool const knowsPrevious = previous && hasEntryForEachEditUnit(*previous);
    if (knowsPrevious)
    {
        VANTRY_CHECK_TEXT(adjoin(*previous, *this),
                          "previous -> indexStartPosition ().value () + previous -> indexDuration ().value () == "
                          "this -> indexStartPosition ().value ()",
                          InvalidIndexSegment, NOT_CONSECUTIVE);
        Groups::link(*previous->groups_, *groups_);
    }

    if (next && hasEntryForEachEditUnit(*next))
    {
        VANTRY_CHECK_TEXT(adjoin(*this, *next),
                          "this -> indexStartPosition ().value () + this -> indexDuration ().value () == "
                          "next -> indexStartPosition ().value ()",
                          InvalidIndexSegment, NOT_CONSECUTIVE);
        Groups::link(*groups_, *next->groups_);

        // The size of a group that spans all three is known only now.
        if (knowsPrevious)
            Groups::link(*previous->groups_, *groups_);
    }
}

}}

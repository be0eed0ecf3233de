#pragma once

#include "IndexTables/IndexTableSegment.h"
#include "IndexTables/SegmentPlaces.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

#include <utility>

namespace Vantry { namespace IndexTables {

/// Segments by the edit units that they cover when they are added. `Pointer`
/// owns a segment, alone or with others.
template <class Pointer>
class SegmentMap
{
public:
    /// Whether there is a segment with start and duration of this one.
    bool hasLike(IndexTableSegment const & segment) const
    {
        return places_.contains(segment.indexStartPosition().value(), segment.indexDuration().value());
    }

    void add(Pointer segment)
    {
        // Room first: nothing may fail between both, or the numbers of the
        // segments would be lost.
        if (segments_.size() == segments_.capacity())
            segments_.reserve(2 * segments_.size() + 1);
        places_.add(segment->indexStartPosition().value(), segment->indexDuration().value());
        segments_.push_back(std::move(segment));
    }

    /// The segment that covers an edit unit, null when there is none. See
    /// SegmentPlaces::find.
    Pointer const * find(Int64 position) const
    {
        std::size_t const found = places_.find(position);
        return found == SegmentPlaces::NONE ? nullptr : &segments_[found];
    }

    std::size_t size() const noexcept { return segments_.size(); }

private:
    SegmentPlaces places_;
    Templates::vector<Pointer> segments_;
};

}}

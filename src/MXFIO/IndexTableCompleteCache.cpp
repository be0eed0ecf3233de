#include "MXFIO/IndexTableCompleteCache.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidID.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "IndexTables/SegmentPlaces.h"
#include "Templates/Containers.h"

#include <utility>

namespace Vantry { namespace MXFIO {

using Segment = Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>;

class IndexTableCompleteCache::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Templates::vector<Segment> segments;
    IndexTables::SegmentPlaces places;
    Segment last;
};

IndexTableCompleteCache::IndexTableCompleteCache(unsigned int bodySID, unsigned int indexSID) :
    IndexTableCache(bodySID, indexSID), impl_(new Impl)
{
}

IndexTableCompleteCache::~IndexTableCompleteCache()
{
    delete impl_;
}

Segment IndexTableCompleteCache::segment(Int64 editUnit)
{
    std::size_t const found = impl_->places.find(editUnit);
    return found == IndexTables::SegmentPlaces::NONE ? Segment() : impl_->segments[found];
}

Segment IndexTableCompleteCache::lastSegment()
{
    return impl_->last;
}

void IndexTableCompleteCache::add(Segment segment)
{
    if (segment.get() == nullptr)
        return;
    if (segment->bodySID().value() != bodySID())
        VANTRY_FAIL(InvalidID, "Trying to cache an IndexTableSegment with different bodySID");
    if (segment->indexSID() != nullptr && segment->indexSID()->value() != indexSID())
        VANTRY_FAIL(InvalidID, "Trying to cache an IndexTableSegment with different indexSID");

    Int64 const start = segment->indexStartPosition().value();
    Int64 const duration = segment->indexDuration().value();
    if (impl_->places.contains(start, duration))
        return;

    impl_->segments.push_back(segment);
    impl_->places.add(start, duration);
    if (impl_->last.get() == nullptr || impl_->last->indexStartPosition().value() <= start)
        impl_->last = std::move(segment);
}

}}

#include "MXFIO/IndexTableCompleteCache.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidID.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "IndexTables/SegmentMap.h"

#include <utility>

namespace Vantry { namespace MXFIO {

using Segment = Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>;

class IndexTableCompleteCache::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    IndexTables::SegmentMap<Segment> segments;
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
    Segment const * const found = impl_->segments.find(editUnit);
    return found != nullptr ? *found : Segment();
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

    if (impl_->segments.hasLike(*segment))
        return;

    impl_->segments.add(segment);
    bool const isLast = impl_->last.get() == nullptr ||
                        impl_->last->indexStartPosition().value() <= segment->indexStartPosition().value();
    if (isLast)
        impl_->last = std::move(segment);
}

}}

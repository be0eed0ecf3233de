#include "MXFIO/IndexTableProviderBase.h"

#include <utility>

namespace Vantry { namespace MXFIO {

using Segment = Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>;

IndexTableProviderBase::IndexTableProviderBase(Templates::SharedPtr<IndexTableCache> cache) : cache_(std::move(cache))
{
}

IndexTableProviderBase::~IndexTableProviderBase() = default;

Segment IndexTableProviderBase::segment(Int64 editUnit)
{
    Segment const known = cache_->segment(editUnit);
    return known.get() != nullptr ? known : fetch(editUnit);
}

Segment IndexTableProviderBase::lastSegment()
{
    return cache_->lastSegment();
}

}}

#pragma once

#include "MXFIO/IndexTableCache.h"

namespace Vantry { namespace MXFIO {

/// A provider that asks a cache, and gets what that hasn't by some strategy.
class VANTRY_EXPORT IndexTableProviderBase : public IndexTableProvider
{
public:
    /// \param cache  keeps what is got; not null
    explicit IndexTableProviderBase(Templates::SharedPtr<IndexTableCache> cache);
    ~IndexTableProviderBase() override;

    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> segment(Int64 editUnit) override;
    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> lastSegment() override;

protected:
    /// Gets the segment that covers an edit unit, and all that come with it,
    /// into the cache; null when there is none.
    virtual Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> fetch(Int64 editUnit) = 0;

    IndexTableCache & cache() const { return *cache_; }

private:
    Templates::SharedPtr<IndexTableCache> cache_;
};

}}

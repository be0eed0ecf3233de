#pragma once

#include "MXFIO/IndexTableCache.h"

namespace Vantry { namespace MXFIO {

/// Keeps all segments that it gets, for good.
class VANTRY_EXPORT IndexTableCompleteCache : public IndexTableCache
{
public:
    IndexTableCompleteCache(unsigned int bodySID, unsigned int indexSID);
    IndexTableCompleteCache(IndexTableCompleteCache const &) = delete;
    IndexTableCompleteCache & operator=(IndexTableCompleteCache const &) = delete;
    ~IndexTableCompleteCache() override;

    /// Of several the one that starts last, and of these the one added last.
    /// A segment of duration 0 has no end.
    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> segment(Int64 editUnit) override;

    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> lastSegment() override;

    /// A segment with start and duration of one that is kept is dropped: files
    /// repeat them in several partitions.
    ///
    /// \throws Exceptions::InvalidID as IndexTableCache.
    void add(Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> segment) override;

private:
    class Impl;
    Impl * impl_;
};

}}

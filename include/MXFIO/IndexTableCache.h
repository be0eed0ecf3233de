#pragma once

#include "MXFIO/IndexTableProvider.h"

namespace Vantry { namespace MXFIO {

/// Keeps index table segments of one essence container and one index.
class VANTRY_EXPORT IndexTableCache : public IndexTableProvider
{
public:
    IndexTableCache(unsigned int bodySID, unsigned int indexSID);
    ~IndexTableCache() override;

    /// Takes a segment; null is ignored.
    ///
    /// \throws Exceptions::InvalidID when the segment belongs to another
    ///         container or index.
    virtual void add(Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> segment) = 0;

    unsigned int bodySID() const noexcept { return bodySID_; }
    unsigned int indexSID() const noexcept { return indexSID_; }

private:
    unsigned int bodySID_;
    unsigned int indexSID_;
};

}}

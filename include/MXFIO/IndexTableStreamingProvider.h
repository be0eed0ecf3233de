#pragma once

#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/IndexTableProviderBase.h"

namespace Vantry { namespace MXFIO {

class Reader2;

/// Follows a file that grows: it looks for new partitions at the end, at most
/// every five seconds, until it meets a footer.
///
/// It has a reader of its own over the source of the one given. Any thread
/// may call it as long as nobody else moves the source.
class VANTRY_EXPORT IndexTableStreamingProvider : public IndexTableProviderBase
{
public:
    /// \param reader   lent, for its source and dictionary
    /// \param profile  what the application knows; may be empty
    /// \throws Exceptions::InvalidFormat when there is no header partition.
    IndexTableStreamingProvider(Templates::SharedPtr<IndexTableCache> cache, Reader2 & reader, unsigned int indexSID,
                                Templates::SharedPtr<ContentStorageProfile> profile);
    IndexTableStreamingProvider(IndexTableStreamingProvider const &) = delete;
    IndexTableStreamingProvider & operator=(IndexTableStreamingProvider const &) = delete;
    ~IndexTableStreamingProvider() override;

    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> segment(Int64 editUnit) override;
    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> lastSegment() override;

protected:
    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> fetch(Int64 editUnit) override;

private:
    Templates::SharedPtr<ContentStorageProfile> profile_;
    class Impl;
    Impl * impl_;
};

}}

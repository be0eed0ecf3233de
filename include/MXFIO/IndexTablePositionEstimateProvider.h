#pragma once

#include "MXFIO/IndexTableProviderBase.h"

namespace Vantry { namespace MXFIO {

class Partition;
class Reader2;

/// Finds the partition with the wanted segment by the random index pack: it
/// guesses by the mean number of edit units, and comes closer with each
/// partition that it reads. A handful are enough in a long file.
class VANTRY_EXPORT IndexTablePositionEstimateProvider : public IndexTableProviderBase
{
public:
    /// \param reader         lent; without a random index pack the partitions
    ///                       are read in their order
    /// \param indexSID       those of the cache, as is `bodySID`
    /// \param firstEditUnit  the first one that the index in `footer` covers
    /// \param lastEditUnit   the first one behind those
    /// \param footer         the partition whose segments are known already
    IndexTablePositionEstimateProvider(Templates::SharedPtr<IndexTableCache> cache, Reader2 & reader,
                                       unsigned int indexSID, unsigned int bodySID, Int64 firstEditUnit,
                                       Int64 lastEditUnit, Partition * footer);
    IndexTablePositionEstimateProvider(IndexTablePositionEstimateProvider const &) = delete;
    IndexTablePositionEstimateProvider & operator=(IndexTablePositionEstimateProvider const &) = delete;
    ~IndexTablePositionEstimateProvider() override;

protected:
    Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo> fetch(Int64 editUnit) override;

private:
    class Impl;
    Impl * impl_;
};

}}

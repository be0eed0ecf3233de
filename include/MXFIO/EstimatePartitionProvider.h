#pragma once

#include "MXFIO/BaseRandomPartitionProvider.h"

namespace Vantry { namespace MXFIO {

/// Tries first where the partition would be if all bodies had the mean size
/// of those seen.
class VANTRY_EXPORT EstimatePartitionProvider : public BaseRandomPartitionProvider
{
public:
    /// \throws Exceptions::InvalidFormat when the random index pack has no
    ///         partition of the container, and as `bodyLength`.
    EstimatePartitionProvider(Reader2 & reader, unsigned int bodySID);
    EstimatePartitionProvider(EstimatePartitionProvider const &) = delete;
    EstimatePartitionProvider & operator=(EstimatePartitionProvider const &) = delete;
    ~EstimatePartitionProvider() override;

    UInt64 firstTry(UInt64 bodyOffset, Int64 editUnit) override;
    void learned(Partition * partition) override;

private:
    class Impl;
    Impl * impl_;
};

}}

#pragma once

#include "MXFIO/BaseRandomPartitionProvider.h"
#include "MXFIO/ContentStorageProfile.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace MXFIO {

/// For files with the same number of edit units in each partition.
class VANTRY_EXPORT FixedEditUnitCountPartitionProvider : public BaseRandomPartitionProvider
{
public:
    /// \throws Exceptions::InvalidValue when the profile has no number of edit
    ///         units.
    FixedEditUnitCountPartitionProvider(Reader2 & reader, unsigned int bodySID,
                                        Templates::SharedPtr<ContentStorageProfile> const & profile);
    ~FixedEditUnitCountPartitionProvider() override;

    UInt64 firstTry(UInt64 bodyOffset, Int64 editUnit) override;
    void learned(Partition * partition) override;

private:
    unsigned int editUnitsPerPartition_;
};

}}

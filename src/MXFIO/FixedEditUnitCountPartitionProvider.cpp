#include "MXFIO/FixedEditUnitCountPartitionProvider.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"

namespace Vantry { namespace MXFIO {

FixedEditUnitCountPartitionProvider::FixedEditUnitCountPartitionProvider(
    Reader2 & reader, unsigned int bodySID, Templates::SharedPtr<ContentStorageProfile> const & profile) :
    BaseRandomPartitionProvider(reader, bodySID), editUnitsPerPartition_(0)
{
    profile->editUnitsPerPartition(&editUnitsPerPartition_);
    VANTRY_CHECK(editUnitsPerPartition_ != 0, InvalidValue,
                 "ContentStorageProfile indicates '0' as the editUnitsPerPartition value.");
}

FixedEditUnitCountPartitionProvider::~FixedEditUnitCountPartitionProvider() = default;

UInt64 FixedEditUnitCountPartitionProvider::firstTry(UInt64, Int64 editUnit)
{
    return editUnit > 0 ? static_cast<UInt64>(editUnit) / editUnitsPerPartition_ : 0;
}

void FixedEditUnitCountPartitionProvider::learned(Partition *) {}

}}

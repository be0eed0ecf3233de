#include "MXFIO/PartitionUtils.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "MXFIO/SaturatingSum.h"
#include "Packs/PartitionPack.h"
#include "Templates/Containers.h"
#include "Utils/NumberText.h"

namespace Vantry { namespace MXFIO {

namespace {

bool isOf(Partition const & partition, unsigned int bodySID)
{
    return partition.partitionPack().bodySID() == bodySID;
}

Templates::string overlapText(UInt64 body, UInt64 next)
{
    return "Expected body absolute offset of last body partition 0x" + Utils::hexadecimal(body) +
           "is higher than begin of footer/next partition (0x" + Utils::hexadecimal(next) + ")";
}

UInt64 lengthUpTo(UInt64 end, Partition const & partition)
{
    UInt64 const body = partition.bodyAbsoluteOffset();
    if (body > end)
        VANTRY_FAIL(InvalidFormat, overlapText(body, end));
    return end - body;
}

// In a file that is still written, the last body reaches to the end.
UInt64 lengthSoFar(Reader & reader, Partition & partition)
{
    if (Partition const * const next = reader.nextPartition(&partition))
        return lengthUpTo(next->partitionAbsoluteOffset(), partition);

    DataIO::RandomAccessDataSource const & source = reader.source();
    return lengthUpTo(saturatingSum(source.absoluteOffset(), source.remaining()), partition);
}

UInt64 endOf(Partition const & partition, UInt64 length)
{
    return saturatingSum(partition.partitionPack().bodyOffset(), length);
}

Partition * lastOf(Reader2 & reader, bool fromLastLoaded)
{
    Partition * const footer = fromLastLoaded ? nullptr : reader.footerPartition();
    return footer != nullptr ? footer : reader.lastLoadedPartition();
}

}

UInt64 bodyLength(Reader & reader, Partition * partition, unsigned int bodySID)
{
    if (partition == nullptr || !isOf(*partition, bodySID))
        return 0;

    Partition const * const partitionAfter = reader.nextPartition(partition);
    VANTRY_CHECK_TEXT(partitionAfter != nullptr, "partitionAfter != 0", InvalidFormat,
                      "File has no footer. No partition found after the last body partition for this bodySID.");
    return lengthUpTo(partitionAfter->partitionAbsoluteOffset(), *partition);
}

Partition * partitionContainingRelativeOffset(Reader & reader, unsigned int bodySID, UInt64 offset)
{
    Partition * currentPartition = reader.headerPartition();
    VANTRY_CHECK_TEXT(currentPartition != nullptr, "currentPartition != 0", InvalidFormat,
                      "Could not find header partition.");

    if (!isOf(*currentPartition, bodySID))
        currentPartition = reader.nextPartition(currentPartition, bodySID);
    Partition * endsThere = nullptr;
    for (; currentPartition != nullptr; currentPartition = reader.nextPartition(currentPartition, bodySID))
    {
        UInt64 const start = currentPartition->partitionPack().bodyOffset();
        if (start == offset)
            return currentPartition;
        if (endsThere != nullptr)
            break;

        UInt64 const length = bodyLength(reader, currentPartition, bodySID);
        if (length == 0)
            return nullptr;
        UInt64 const end = endOf(*currentPartition, length);
        if (start < offset && offset < end)
            return currentPartition;
        if (offset == end)
            endsThere = currentPartition;
    }
    return endsThere;
}

Partition * partitionContainingRelativeOffset(Reader2 & reader, unsigned int bodySID, UInt64 offset,
                                              bool fromLastLoaded)
{
    Partition * currentPartition = lastOf(reader, fromLastLoaded);
    VANTRY_CHECK_TEXT(currentPartition != nullptr, "currentPartition != 0", InvalidFormat,
                      "Could not find footer partition.");

    if (!isOf(*currentPartition, bodySID))
        currentPartition = reader.previousPartition(currentPartition, bodySID);
    while (currentPartition != nullptr && currentPartition->partitionPack().bodyOffset() > offset)
        currentPartition = reader.previousPartition(currentPartition, bodySID);

    bool const holds =
        currentPartition != nullptr && endOf(*currentPartition, lengthSoFar(reader, *currentPartition)) >= offset;
    return holds ? currentPartition : nullptr;
}

}}

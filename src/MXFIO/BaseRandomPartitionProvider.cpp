#include "MXFIO/BaseRandomPartitionProvider.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "MXFIO/PartitionUtils.h"
#include "MXFIO/RIPEntry.h"
#include "Packs/PartitionPack.h"
#include "Packs/RandomIndexPack.h"
#include "Utils/NumberText.h"

#include <algorithm>
#include <charconv>

namespace Vantry { namespace MXFIO {

namespace {

Templates::vector<UInt64> offsetsOf(Reader const & reader, unsigned int bodySID)
{
    Templates::vector<UInt64> offsets;
    if (reader.rip().get() == nullptr)
        return offsets;

    auto const range = reader.rip()->sidIndexedMap().equal_range(bodySID);
    for (auto entry = range.first; entry != range.second; ++entry)
        offsets.push_back(entry->second);
    std::sort(offsets.begin(), offsets.end());
    return offsets;
}

Templates::string decimal(unsigned int value)
{
    char text[16];
    return Templates::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

Templates::string wrongContainerText(UInt64 offset, unsigned int found, unsigned int wanted)
{
    return "Partition offset (0x" + Utils::hexadecimal(offset) +
           ") in RIP points to PartitionPack of unexpected bodySID (" + decimal(found) + " instead of " +
           decimal(wanted) + ")";
}

}

BaseRandomPartitionProvider::BaseRandomPartitionProvider(Reader2 & reader, unsigned int bodySID) :
    reader_(reader), bodySID_(bodySID), partitionOffsets_(offsetsOf(reader, bodySID))
{
}

BaseRandomPartitionProvider::~BaseRandomPartitionProvider() = default;

Partition * BaseRandomPartitionProvider::partitionContaining(UInt64 bodyOffset, Int64 editUnit)
{
    if (partitionOffsets_.empty())
        return partitionContainingRelativeOffset(reader_, bodySID_, bodyOffset, false);

    // Between these two lies the partition, if there is one.
    UInt64 low = 0;
    UInt64 high = partitionOffsets_.size();
    while (low < high)
    {
        UInt64 const index = std::min(std::max(firstTry(bodyOffset, editUnit), low), high - 1);
        Partition * const partition = openPartition(index);
        Packs::PartitionPack const & pack = partition->partitionPack();
        if (pack.bodySID() != bodySID_)
        {
            // At an end of the range it can be passed over.
            VANTRY_CHECK_TEXT(index == high - 1 || index == low,
                              "partition -> partitionPack ().bodySID () == bodySID_", InvalidFormat,
                              wrongContainerText(partitionOffsets_[index], pack.bodySID(), bodySID_));
            index == high - 1 ? --high : ++low;
        }
        else if (bodyOffset < pack.bodyOffset())
            high = index;
        else if (bodyOffset - pack.bodyOffset() < bodyLength(reader_, partition, bodySID_))
            return partition;
        else
            low = index + 1;
    }
    return nullptr;
}

Partition * BaseRandomPartitionProvider::openPartition(UInt64 index)
{
    Partition * const partition = partitionOfEntry(reader_, partitionOffsets_[index]);
    learned(partition);
    VANTRY_CHECK_TEXT(partition != nullptr, "partition != 0", InvalidFormat,
                      "Unable to find a partition in an offset indicated in RIP.");
    return partition;
}

}}

#include "Metadata/SetOrder.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidStructure.h"
#include "KLV/KeyPredicates.h"
#include "Metadata/MetadataKeys.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/PartitionMetadataUtils.h"

#include <algorithm>

namespace Vantry { namespace Metadata { namespace SetOrder {

namespace {

Types::StringRepresentationEncodingType const DOTTED = Types::StringRepresentationEncodingType::DOTTED_BYTES;

// SMPTE registers no sets of its own there.
bool isExperimental(KLV::Key const & key)
{
    return key[8] == 0x0F;
}

MetadataSet const & onlyPreface(PartitionMetadata const & metadata)
{
    Templates::vector<MetadataSet *> const prefaces = metadata.find(MetadataKeys::preface());
    if (prefaces.empty())
        VANTRY_FAIL(InvalidStructure, "Preface not found in PartitionMetadata");
    if (prefaces.size() > 1)
        VANTRY_FAIL(InvalidStructure, "More than one Preface found in PartitionMetadata");
    return *prefaces.front();
}

// Names the first set whose identifier is another one's.
[[noreturn]] void failRepeated(PartitionMetadata const & metadata)
{
    InstanceUIDs seen;
    auto const repeated = std::find_if(metadata.begin(), metadata.end(),
                                       [&](auto const & entry)
                                       {
                                           Types::UUID const * const instanceUID = entry.second->instanceUID();
                                           return instanceUID != nullptr && !seen.insert(*instanceUID).second;
                                       });
    VANTRY_FAIL(InvalidFormat, Platform::stringToWstring("The ") + repeated->first.toString(DOTTED) +
                                   Platform::stringToWstring(" metadataSet has an instance UID, ") +
                                   repeated->second->instanceUID()->toString(DOTTED) +
                                   Platform::stringToWstring(", already defined!"));
}

}

Sets prefaceFirst(PartitionMetadata const & metadata)
{
    MetadataSet const * const preface = &onlyPreface(metadata);
    Sets order(1, preface);
    for (auto const & entry : metadata)
        if (entry.second != preface)
            order.push_back(entry.second);
    return order;
}

Sets reversed(Sets const & forward, bool experimentalFirst)
{
    Sets experimental;
    Sets structural;
    Sets others;
    for (auto place = forward.begin() + 1; place != forward.end(); ++place)
    {
        KLV::Key const & key = (*place)->key();
        if (KLV::isStructuralMetadataSet(key))
            structural.push_back(*place);
        else if (experimentalFirst && isExperimental(key))
            experimental.push_back(*place);
        else
            others.push_back(*place);
    }

    Sets order(experimental);
    order.insert(order.end(), others.rbegin(), others.rend());
    order.push_back(forward.front());
    order.insert(order.end(), structural.rbegin(), structural.rend());
    return order;
}

void checkInstanceUIDs(PartitionMetadata const & metadata)
{
    Templates::vector<Types::UUID> sorted;
    for (auto const & entry : metadata)
        if (Types::UUID const * const instanceUID = entry.second->instanceUID())
            sorted.push_back(*instanceUID);
    std::sort(sorted.begin(), sorted.end());
    if (std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end())
        failRepeated(metadata);
}

}}}

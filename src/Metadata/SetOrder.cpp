#include "Metadata/SetOrder.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidStructure.h"
#include "KLV/KeyPredicates.h"
#include "Metadata/HashedUUIDs.h"
#include "Metadata/MetadataKeys.h"
#include "Metadata/MetadataSet.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <unordered_set>

namespace Vantry { namespace Metadata { namespace SetOrder {

namespace {

Types::StringRepresentationEncodingType const DOTTED = Types::StringRepresentationEncodingType::DOTTED_BYTES;

// SMPTE registers no sets of its own there.
bool isExperimental(KLV::Key const & key)
{
    return key[8] == 0x0F;
}

MetadataSet const & onlyPreface(ByKey const & sets)
{
    auto const isPreface = [&](auto place)
    {
        return place != sets.end() && (*place)->key() == MetadataKeys::preface();
    };
    auto const preface =
        std::lower_bound(sets.begin(), sets.end(), MetadataKeys::preface(),
                         [](MetadataSet const * set, KLV::Key const & key) { return set->key() < key; });
    if (!isPreface(preface))
        VANTRY_FAIL(InvalidStructure, "Preface not found in PartitionMetadata");
    if (isPreface(preface + 1))
        VANTRY_FAIL(InvalidStructure, "More than one Preface found in PartitionMetadata");
    return **preface;
}

void checkEach(ByKey const & sets)
{
    HashedUUIDs seen(sets.size());
    for (MetadataSet const * set : sets)
    {
        Types::UUID const * const instanceUID = set->instanceUID();
        if (instanceUID != nullptr && !seen.insert(*instanceUID).second)
            VANTRY_FAIL(InvalidFormat, Platform::stringToWstring("The ") + set->key().toString(DOTTED) +
                                           Platform::stringToWstring(" metadataSet has an instance UID, ") +
                                           instanceUID->toString(DOTTED) +
                                           Platform::stringToWstring(", already defined!"));
    }
}

}

Sets prefaceFirst(ByKey const & sets)
{
    MetadataSet const * const preface = &onlyPreface(sets);
    Sets order(1, preface);
    std::copy_if(sets.begin(), sets.end(), std::back_inserter(order),
                 [&](MetadataSet const * set) { return set != preface; });
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

// Hashes take a fraction of the time of identifiers. Equal ones may still be
// of different identifiers.
void checkInstanceUIDs(ByKey const & sets)
{
    Templates::vector<std::size_t> hashes;
    hashes.reserve(sets.size());
    for (MetadataSet const * set : sets)
        if (Types::UUID const * const instanceUID = set->instanceUID())
            hashes.push_back(HashUUID()(*instanceUID));
    std::sort(hashes.begin(), hashes.end());
    if (std::adjacent_find(hashes.begin(), hashes.end()) != hashes.end())
        checkEach(sets);
}

void appendOthers(ByKey const & sets, Sets & order)
{
    std::unordered_set<MetadataSet const *, std::hash<MetadataSet const *>, std::equal_to<>,
                       Platform::Allocator<MetadataSet const *>> const inOrder(order.begin(), order.end(),
                                                                               order.size());
    std::copy_if(sets.begin(), sets.end(), std::back_inserter(order),
                 [&](MetadataSet const * set) { return inOrder.count(set) == 0; });
}

}}}

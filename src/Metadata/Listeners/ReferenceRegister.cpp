#include "Metadata/Listeners/ReferenceRegister.h"

#include "Metadata/Element.h"
#include "Metadata/ElementValue.h"
#include "Metadata/MetadataSet.h"
#include "Types/Collection.h"
#include "Types/StrongReference.h"

#include <algorithm>

namespace Vantry { namespace Metadata { namespace Listeners {

namespace {

template <class Action>
void forEachElement(MetadataSet & set, Action const & action)
{
    for (MetadataSet::Entry const & entry : set)
        action(*entry.second);
    std::for_each(set.invalidBegin(), set.invalidEnd(), [&](Element * element) { action(*element); });
}

}

ReferenceEntry const * ReferenceRegister::find(Types::UUID const & uuid) const
{
    auto const place = byUUID.find(uuid);
    return place != byUUID.end() ? place->second.get() : nullptr;
}

void ReferenceRegister::add(Element & element, Types::BaseType const & value)
{
    if (auto const * const single = dynamic_cast<Types::SimpleDataType const *>(&value))
        addItem(element, *single);
    if (auto const * const collection = dynamic_cast<Types::Collection const *>(&value))
        for (unsigned int i = 0; i < collection->size(); ++i)
            addItem(element, collection->at(i));
}

void ReferenceRegister::addItem(Element & element, Types::SimpleDataType const & item)
{
    auto const * const reference = dynamic_cast<Types::Reference const *>(&item);
    if (reference == nullptr)
        return;

    Templates::SharedPtr<ReferenceEntry> & entry = byUUID[reference->uuid()];
    if (!entry)
        entry = Templates::SharedPtr<ReferenceEntry>(new ReferenceEntry);
    bool const known = entry->weak.count(&element) != 0 || entry->strong.count(&element) != 0;
    bool const strong = dynamic_cast<Types::StrongReference const *>(reference) != nullptr;
    (strong ? entry->strong : entry->weak).insert(&element);
    if (!known)
        byElement.emplace(&element, reference->uuid());
}

void ReferenceRegister::removeItem(Element & element, Types::SimpleDataType const & item)
{
    auto const * const reference = dynamic_cast<Types::Reference const *>(&item);
    if (reference == nullptr)
        return;

    takeOut(element, reference->uuid());
    auto const range = byElement.equal_range(&element);
    auto const pair =
        std::find_if(range.first, range.second, [&](auto const & entry) { return entry.second == reference->uuid(); });
    if (pair != range.second)
        byElement.erase(pair);
}

void ReferenceRegister::forget(Element & element)
{
    auto const range = byElement.equal_range(&element);
    for (auto place = range.first; place != range.second; ++place)
        takeOut(element, place->second);
    byElement.erase(range.first, range.second);
}

void ReferenceRegister::add(MetadataSet & set)
{
    forEachElement(set,
                   [this](Element & element)
                   {
                       Types::BaseType const * const value = valueOf(element);
                       if (value != nullptr)
                           add(element, *value);
                   });
}

void ReferenceRegister::forget(MetadataSet & set)
{
    forEachElement(set, [this](Element & element) { forget(element); });
}

Templates::vector<Types::UUID> ReferenceRegister::ownedBy(MetadataSet & set) const
{
    Templates::vector<Types::UUID> owned;
    forEachElement(set,
                   [&](Element & element)
                   {
                       auto const range = byElement.equal_range(&element);
                       for (auto place = range.first; place != range.second; ++place)
                           if (find(place->second)->strong.count(&element) != 0)
                               owned.push_back(place->second);
                   });
    std::sort(owned.begin(), owned.end());
    owned.erase(std::unique(owned.begin(), owned.end()), owned.end());
    return owned;
}

// Entries of what nothing refers to would only grow in number.
void ReferenceRegister::takeOut(Element & element, Types::UUID const & uuid)
{
    auto const place = byUUID.find(uuid);
    if (place == byUUID.end())
        return;
    ReferenceEntry & entry = *place->second;
    entry.weak.erase(&element);
    entry.strong.erase(&element);
    if (entry.weak.empty() && entry.strong.empty())
        byUUID.erase(place);
}

}}}

#include "Metadata/SetRegister.h"

#include "Metadata/MetadataSet.h"

#include <iterator>

namespace Vantry { namespace Metadata {

SetRegister::~SetRegister()
{
    for (auto const & entry : sets_)
        delete entry.second;
}

void SetRegister::add(Templates::auto_ptr<MetadataSet> set)
{
    auto const last = lastOfKey_.emplace(set->key(), sets_.end()).first;
    auto const behind = last->second != sets_.end() ? std::next(last->second) : sets_.upper_bound(set->key());
    auto const entry = sets_.emplace_hint(behind, set->key(), set.get());
    try
    {
        if (placesKnown_)
            places_.emplace(set.get(), Place{entry, ++lastNumber_});
    }
    catch (...)
    {
        sets_.erase(entry);
        throw;
    }
    last->second = entry;
    set.release();
    row_.clear();
}

Templates::auto_ptr<MetadataSet> SetRegister::remove(MetadataSet & set)
{
    if (!has(set))
        return Templates::auto_ptr<MetadataSet>();

    auto const place = places_.find(&set);
    Sets::const_iterator const entry = place->second.entry;
    auto const last = lastOfKey_.find(entry->first);
    if (last != lastOfKey_.end() && last->second == entry)
        lastOfKey_.erase(last);
    sets_.erase(entry);
    places_.erase(place);
    row_.clear();
    return Templates::auto_ptr<MetadataSet>(&set);
}

bool SetRegister::isAhead(MetadataSet const & left, MetadataSet const & right) const
{
    Place const & ofLeft = places().at(&left);
    Place const & ofRight = places().at(&right);
    if (ofLeft.entry->first != ofRight.entry->first)
        return ofLeft.entry->first < ofRight.entry->first;
    return ofLeft.number < ofRight.number;
}

SetRegister::Row const & SetRegister::row() const
{
    if (row_.size() == sets_.size())
        return row_;
    row_.reserve(sets_.size());
    for (auto const & entry : sets_)
        row_.push_back(entry.second);
    return row_;
}

SetRegister::Places const & SetRegister::places() const
{
    if (placesKnown_)
        return places_;
    for (auto entry = sets_.begin(); entry != sets_.end(); ++entry)
        places_.emplace(entry->second, Place{entry, ++lastNumber_});
    placesKnown_ = true;
    return places_;
}

}}

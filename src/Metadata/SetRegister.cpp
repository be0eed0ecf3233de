#include "Metadata/SetRegister.h"

#include "Metadata/MetadataSet.h"

namespace Vantry { namespace Metadata {

SetRegister::~SetRegister()
{
    for (auto const & entry : sets_)
        delete entry.second;
}

void SetRegister::add(Templates::auto_ptr<MetadataSet> set)
{
    auto const entry = sets_.emplace(set->key(), set.get());
    try
    {
        places_.emplace(set.get(), Place{entry, ++lastNumber_});
    }
    catch (...)
    {
        sets_.erase(entry);
        throw;
    }
    set.release();
}

Templates::auto_ptr<MetadataSet> SetRegister::remove(MetadataSet & set) noexcept
{
    auto const place = places_.find(&set);
    if (place == places_.end())
        return Templates::auto_ptr<MetadataSet>();

    sets_.erase(place->second.entry);
    places_.erase(place);
    return Templates::auto_ptr<MetadataSet>(&set);
}

bool SetRegister::isAhead(MetadataSet const & left, MetadataSet const & right) const
{
    Place const & ofLeft = places_.at(&left);
    Place const & ofRight = places_.at(&right);
    if (ofLeft.entry->first != ofRight.entry->first)
        return ofLeft.entry->first < ofRight.entry->first;
    return ofLeft.number < ofRight.number;
}

}}

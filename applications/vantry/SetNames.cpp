#include "SetNames.h"

namespace Vantry { namespace Application {

namespace {

int const REGISTRY_VERSION_BYTE = 7;

}

SetNames::SetNames(Schema::Tables const & tables)
{
    for (Schema::SetRow const & set : tables.sets)
        names_[withoutVersion(KLV::Key(set.key.bytes))] = set.name; // a user's sets come last
}

std::string const * SetNames::find(KLV::Key const & key) const
{
    auto const found = names_.find(withoutVersion(key));
    return found != names_.end() ? &found->second : nullptr;
}

KLV::Key SetNames::withoutVersion(KLV::Key key)
{
    key[REGISTRY_VERSION_BYTE] = 0;
    return key;
}

}}

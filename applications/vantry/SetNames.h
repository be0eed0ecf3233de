#pragma once

#include "KLV/Key.h"
#include "Schema/Tables.h"

#include <map>
#include <string>

namespace Vantry { namespace Application {

/// The names that a schema has for metadata sets. The registry version of a
/// key doesn't count.
class SetNames
{
public:
    explicit SetNames(Schema::Tables const & tables);

    /// The name of the set with this key; null when the schema has none.
    std::string const * find(KLV::Key const & key) const;

private:
    static KLV::Key withoutVersion(KLV::Key key);

    std::map<KLV::Key, std::string> names_;
};

}}

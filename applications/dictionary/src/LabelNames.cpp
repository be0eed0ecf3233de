#include "Schema/LabelNames.h"

#include <algorithm>
#include <cstring>

namespace Vantry { namespace Schema {

namespace {

std::size_t const VERSION_BYTE = 7;
std::size_t const SIZE = 16;

bool isVersionOf(NameRow const & row, unsigned char const * label)
{
    return std::memcmp(row.label.bytes, label, VERSION_BYTE) == 0 &&
           std::memcmp(row.label.bytes + VERSION_BYTE + 1, label + VERSION_BYTE + 1, SIZE - VERSION_BYTE - 1) == 0;
}

}

char const * findLabelName(Tables const & tables, unsigned char const * label)
{
    NameRow const * const found = std::lower_bound(tables.labels.begin(), tables.labels.end(), label,
                                                   [](NameRow const & row, unsigned char const * wanted)
                                                   { return std::memcmp(row.label.bytes, wanted, SIZE) < 0; });
    if (found != tables.labels.end() && std::memcmp(found->label.bytes, label, SIZE) == 0)
        return found->name;

    NameRow const * const version = std::find_if(tables.labels.begin(), tables.labels.end(),
                                                 [&](NameRow const & row) { return isVersionOf(row, label); });
    return version != tables.labels.end() ? version->name : nullptr;
}

}}

#include "KLV/FillItem.h"

namespace Vantry { namespace KLV {

namespace {

constexpr unsigned char FILL_ITEM[] = {0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x01,
                                       0x03, 0x01, 0x02, 0x10, 0x01, 0x00, 0x00, 0x00};
int const REGISTRY_VERSION = 7;

// Made at compile time, so that it is there for every static initialiser.
Key key(FILL_ITEM);

}

Key const & fillItemKey() noexcept
{
    return key;
}

void fillItemKey(unsigned char version) noexcept
{
    key[REGISTRY_VERSION] = version;
}

}}

#include "KLV/Key.h"

#include "KLV/KeyPredicates.h"
#include "KLV/Value.h"

#include <cstring>

namespace Vantry { namespace KLV {

namespace {

int const REGISTRY_DESIGNATOR = 5;

}

Key::Key(Value & value)
{
    value.readValue(bytes_, SIZE);
}

unsigned char Key::lengthFieldLength() const noexcept
{
    static unsigned char const LENGTHS[] = {0, 1, 2, 4};
    return isLocalSet(*this) ? LENGTHS[bytes_[REGISTRY_DESIGNATOR] >> 5 & 3] : 0;
}

unsigned char Key::localTagFieldLength() const noexcept
{
    static unsigned char const LENGTHS[] = {1, 1, 2, 4};
    return isLocalSet(*this) ? LENGTHS[bytes_[REGISTRY_DESIGNATOR] >> 3 & 3] : 0;
}

bool operator==(Key const & left, Key const & right) noexcept
{
    return std::memcmp(left.rawBuffer(), right.rawBuffer(), left.size()) == 0;
}

bool operator!=(Key const & left, Key const & right) noexcept
{
    return !(left == right);
}

bool operator<(Key const & left, Key const & right) noexcept
{
    return std::memcmp(left.rawBuffer(), right.rawBuffer(), left.size()) < 0;
}

}}

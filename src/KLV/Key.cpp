#include "KLV/Key.h"

#include "KLV/IdentifierText.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Value.h"
#include "Platform/Text.h"

#include <cstring>
#include <ostream>

namespace Vantry { namespace KLV {

namespace {

int const REGISTRY_DESIGNATOR = 5;

IdentifierText const TEXT = {"Key", Types::StringRepresentationEncodingType::OID, &KEY_OID_PREFIX};

}

Key::Key(Value & value)
{
    value.readValue(bytes_, SIZE);
}

Key::Key(unsigned short const * text, Types::StringRepresentationEncodingType encoding)
{
    loadFromString(text, encoding, TEXT, bytes_, SIZE);
}

Templates::wstring Key::toString(Types::StringRepresentationEncodingType encoding) const
{
    return KLV::toString(bytes_, SIZE, encoding, TEXT);
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

std::ostream & operator<<(std::ostream & out, Key const & key)
{
    return out << Platform::wstringToString(
               key.toString(Types::StringRepresentationEncodingType::DOTTED_BYTES).c_str());
}

}}

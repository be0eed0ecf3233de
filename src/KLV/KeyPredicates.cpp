#include "KLV/KeyPredicates.h"

#include "KLV/KeyBytes.h"

namespace Vantry { namespace KLV {

bool isLocalSet(Key const & key) noexcept
{
    return KeyBytes::isLocalSet(key.rawBuffer());
}

bool isMXFDefaultLocalSet(Key const & key) noexcept
{
    return KeyBytes::isMXFDefaultLocalSet(key.rawBuffer());
}

bool isFixedPack(Key const & key) noexcept
{
    return KeyBytes::isFixedPack(key.rawBuffer());
}

bool isStructuralMetadataSet(Key const & key) noexcept
{
    return KeyBytes::isStructuralMetadataSet(key.rawBuffer());
}

bool isDescriptiveMetadataSet(Key const & key) noexcept
{
    return KeyBytes::isDescriptiveMetadataSet(key.rawBuffer());
}

bool isMetadataSet(Key const & key) noexcept
{
    return KeyBytes::isMetadataSet(key.rawBuffer());
}

bool isIndexTableKlvSegment(Key const & key) noexcept
{
    return KeyBytes::isIndexTableKlvSegment(key.rawBuffer());
}

bool isFillItem(Key const & key) noexcept
{
    return KeyBytes::isFillItem(key.rawBuffer());
}

bool isEssence(Key const & key) noexcept
{
    return KeyBytes::isEssence(key.rawBuffer());
}

}}

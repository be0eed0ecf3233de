#include "Types/LabelPredicates.h"

#include "KLV/KeyBytes.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Types {

bool isFillItem(UniversalLabel const & label) noexcept
{
    return KLV::KeyBytes::isFillItem(label.rawBuffer());
}

bool isEssence(UniversalLabel const & label) noexcept
{
    return KLV::KeyBytes::isEssence(label.rawBuffer());
}

bool isMetadataSet(UniversalLabel const & label) noexcept
{
    return KLV::KeyBytes::isMetadataSet(label.rawBuffer());
}

bool isStructuralMetadataSet(UniversalLabel const & label) noexcept
{
    return KLV::KeyBytes::isStructuralMetadataSet(label.rawBuffer());
}

bool isDescriptiveMetadataSet(UniversalLabel const & label) noexcept
{
    return KLV::KeyBytes::isDescriptiveMetadataSet(label.rawBuffer());
}

bool isIndexTableKlvSegment(UniversalLabel const & label) noexcept
{
    return KLV::KeyBytes::isIndexTableKlvSegment(label.rawBuffer());
}

bool isFixedPack(UniversalLabel const & label) noexcept
{
    return KLV::KeyBytes::isFixedPack(label.rawBuffer());
}

bool isMXFDefaultLocalSet(UniversalLabel const & label) noexcept
{
    return KLV::KeyBytes::isLocalSet(label.rawBuffer());
}

}}

#include "MetaMetadata/MetaMetadataSet.h"

#include "Exceptions/AlreadySet.h"
#include "Exceptions/Check.h"
#include "MetaMetadata/MetaElement.h"

#include <algorithm>

namespace Vantry { namespace MetaMetadata {

MetaMetadataSet::MetaMetadataSet(KLV::Key const & key) : key_(key) {}

void MetaMetadataSet::addMetaAttribute(Templates::SharedPtr<MetaAttribute> attribute)
{
    Types::UniversalLabel const & label = attribute->metaElement().universalLabel();
    if (!attributes_.emplace(label, attribute).second)
        VANTRY_FAIL(AlreadySet, Platform::stringToWstring("A MetaAttribute with UL ") +
                                    label.toString(Types::StringRepresentationEncodingType::DOTTED_BYTES) +
                                    Platform::stringToWstring(" already exists in this MetaMetadataSet\n"));
}

Templates::SharedPtr<MetaAttribute> MetaMetadataSet::findMetaAttribute(Types::UniversalLabel const & label) const
{
    auto const found = attributes_.find(label);
    return found != attributes_.end() ? found->second : Templates::SharedPtr<MetaAttribute>();
}

bool operator==(MetaMetadataSet const & left, MetaMetadataSet const & right)
{
    return left.key() == right.key() && left.metaAttributeCount() == right.metaAttributeCount() &&
           std::equal(left.metaAttributesBegin(), left.metaAttributesEnd(), right.metaAttributesBegin(),
                      [](auto const & one, auto const & other)
                      { return one.first == other.first && *one.second == *other.second; }) &&
           static_cast<PropertyMap const &>(left) == static_cast<PropertyMap const &>(right);
}

}}

#include "Metadata/ElementFactory.h"

#include "MetaMetadata/Helpers.h"
#include "MetaMetadata/MetaAttribute.h"
#include "Metadata/ElementCells.h"
#include "Metadata/SimpleElement.h"

namespace Vantry { namespace Metadata {

namespace {

using Attribute = Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const>;
using MetaMetadata::MetaElement;

}

Element * ElementFactory::create(Templates::SharedPtr<MetaMetadata::MetaAttribute> const & attribute, MetadataSet & set)
{
    return makeElement(nullptr, attribute, set, attribute->metaElement());
}

Element * ElementFactory::create(Attribute const & attribute, MetadataSet & set)
{
    MetaElement const * const metaElement = MetaMetadata::Helpers::abstractMetaAttributeToMetaElement(attribute);
    return metaElement != nullptr ? create(attribute, set, *metaElement)
                                  : new SimpleElement(Templates::auto_ptr<Types::SimpleDataType>(), attribute, set);
}

Element * ElementFactory::create(Attribute const & attribute, MetadataSet & set, MetaElement const & metaElement)
{
    return makeElement(nullptr, attribute, set, metaElement);
}

}}

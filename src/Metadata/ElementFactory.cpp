#include "Metadata/ElementFactory.h"

#include "MetaMetadata/Helpers.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/Visitors/GetMetaElementVisitor.h"
#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/SchemaRules.h"
#include "Metadata/SimpleElement.h"
#include "Types/Collection.h"
#include "Types/Reference.h"

namespace Vantry { namespace Metadata {

namespace {

using Attribute = Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const>;
using MetaMetadata::MetaCollectionElement;
using MetaMetadata::MetaElement;
using Types::Identifiers::Identifier;

// Only entries for collections have these types.
bool isCollection(Identifier type)
{
    return type == Types::Identifiers::Array || type == Types::Identifiers::Batch;
}

Element * createCollection(Attribute const & attribute, MetadataSet & set, MetaCollectionElement const & metaElement)
{
    Templates::auto_ptr<Types::Collection> none;
    bool const references = SchemaRules::isReference(metaElement.dataSubType());
    if (metaElement.dataType() == Types::Identifiers::Array)
        return references ? static_cast<Element *>(new ArrayReferenceElement(none, attribute, set))
                          : new ArrayElement(none, attribute, set);
    return references ? static_cast<Element *>(new BatchReferenceElement(none, attribute, set))
                      : new BatchElement(none, attribute, set);
}

Element * createSimple(Attribute const & attribute, MetadataSet & set)
{
    return new SimpleElement(Templates::auto_ptr<Types::SimpleDataType>(), attribute, set);
}

}

Element * ElementFactory::create(Templates::SharedPtr<MetaMetadata::MetaAttribute> const & attribute, MetadataSet & set)
{
    return create(Attribute(attribute), set, attribute->metaElement());
}

Element * ElementFactory::create(Attribute const & attribute, MetadataSet & set)
{
    MetaElement const * const metaElement = MetaMetadata::Helpers::abstractMetaAttributeToMetaElement(attribute);
    return metaElement != nullptr ? create(attribute, set, *metaElement) : createSimple(attribute, set);
}

Element * ElementFactory::create(Attribute const & attribute, MetadataSet & set, MetaElement const & metaElement)
{
    Identifier const type = metaElement.dataType();
    if (SchemaRules::isReference(type))
        return new ReferenceElement(Templates::auto_ptr<Types::Reference>(), attribute, set);
    if (!isCollection(type))
        return createSimple(attribute, set);
    return createCollection(attribute, set,
                            *MetaMetadata::Visitors::getMetaElement<MetaCollectionElement>(&metaElement));
}

}}

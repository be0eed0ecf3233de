#include "Metadata/ElementCells.h"

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

#include <algorithm>
#include <functional>
#include <utility>

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

// Makes an element in a cell, or anywhere when that is null.
template <class Class, class Value>
Element * make(void * cell, Attribute attribute, MetadataSet & set)
{
    Templates::auto_ptr<Value> none;
    return cell != nullptr ? new (cell) Class(none, std::move(attribute), set)
                           : new Class(none, std::move(attribute), set);
}

Element * makeCollection(void * cell, Attribute attribute, MetadataSet & set, MetaElement const & metaElement)
{
    auto const & collection = *MetaMetadata::Visitors::getMetaElement<MetaCollectionElement>(&metaElement);
    bool const references = SchemaRules::isReference(collection.dataSubType());
    if (collection.dataType() == Types::Identifiers::Array)
        return (references ? &make<ArrayReferenceElement, Types::Collection>
                           : &make<ArrayElement, Types::Collection>)(cell, std::move(attribute), set);
    return (references ? &make<BatchReferenceElement, Types::Collection>
                       : &make<BatchElement, Types::Collection>)(cell, std::move(attribute), set);
}

std::size_t const CELL_SIZE =
    std::max({sizeof(SimpleElement), sizeof(ReferenceElement), sizeof(ArrayElement), sizeof(BatchElement),
              sizeof(ArrayReferenceElement), sizeof(BatchReferenceElement)});

}

Element * makeElement(void * cell, Attribute attribute, MetadataSet & set, MetaElement const & metaElement)
{
    Identifier const type = metaElement.dataType();
    if (isCollection(type))
        return makeCollection(cell, std::move(attribute), set, metaElement);
    return (SchemaRules::isReference(type)
                ? &make<ReferenceElement, Types::Reference>
                : &make<SimpleElement, Types::SimpleDataType>)(cell, std::move(attribute), set);
}

ElementCells::ElementCells(std::size_t count) :
    begin_(static_cast<unsigned char *>(Platform::allocateOrThrow(count * CELL_SIZE))),
    next_(begin_),
    end_(begin_ + count * CELL_SIZE)
{
}

ElementCells::~ElementCells()
{
    Platform::malloc_alloc::deallocate(begin_, static_cast<UInt64>(end_ - begin_));
}

Element & ElementCells::create(Templates::SharedPtr<MetaMetadata::MetaAttribute> const & attribute, MetadataSet & set)
{
    Element & element = *makeElement(next_, attribute, set, attribute->metaElement());
    next_ += CELL_SIZE;
    return element;
}

void ElementCells::destroy(Element * element) const
{
    std::less<> const isBelow;
    void const * const place = dynamic_cast<void const *>(element);
    if (isBelow(place, static_cast<void const *>(begin_)) || !isBelow(place, static_cast<void const *>(end_)))
        delete element;
    else
        element->~Element();
}

}}

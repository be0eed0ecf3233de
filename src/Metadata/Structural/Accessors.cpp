#include "Metadata/Structural/Accessors.h"

#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/MetadataSetOwner.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/SimpleElement.h"
#include "Types/Reference.h"

namespace Vantry { namespace Metadata { namespace Structural {

namespace {

// The element of an attribute; null when there is none of this kind.
template <class Kind>
Kind const * find(MetadataSet const & set, Types::UniversalLabel const & label)
{
    return dynamic_cast<Kind const *>(set.findElement(label));
}

// The element of an attribute that is to be changed.
template <class Kind>
Kind & get(MetadataSet & set, Types::UniversalLabel const & label)
{
    return dynamic_cast<Kind &>(set.find(label));
}

MetadataSet * findReferenced(MetadataSet const & set, Types::Reference const * reference)
{
    return findSet(set, MetadataULs::instanceUID(), reference);
}

}

Types::SimpleDataType const * simpleValue(MetadataSet const & set, Types::UniversalLabel const & label)
{
    SimpleElement const * const element = find<SimpleElement>(set, label);
    return element != nullptr ? element->value() : nullptr;
}

void setValue(MetadataSet & set, Types::UniversalLabel const & label, Types::SimpleDataType const * value)
{
    Templates::auto_ptr<Types::SimpleDataType> copy;
    if (value != nullptr)
        copy = value->clone();
    get<SimpleElement>(set, label).set(copy, false);
}

unsigned int itemCount(MetadataSet const & set, Types::UniversalLabel const & label)
{
    if (CollectionElement const * const values = find<CollectionElement>(set, label))
        return values->size();
    if (CollectionReferenceElement const * const references = find<CollectionReferenceElement>(set, label))
        return references->size();
    return 0;
}

void removeItem(MetadataSet & set, Types::UniversalLabel const & label, unsigned int index)
{
    Element & element = set.find(label);
    if (CollectionElement * const values = dynamic_cast<CollectionElement *>(&element))
        values->remove(index);
    else
        dynamic_cast<CollectionReferenceElement &>(element).remove(index);
}

Types::SimpleDataType const * valueItem(MetadataSet const & set, Types::UniversalLabel const & label,
                                        unsigned int index)
{
    CollectionElement const * const values = find<CollectionElement>(set, label);
    return values != nullptr && index < values->size() ? &values->at(index) : nullptr;
}

void insertValue(MetadataSet & set, Types::UniversalLabel const & label, unsigned int index,
                 Types::SimpleDataType const & value)
{
    get<ArrayElement>(set, label).insertAt(index, value.clone());
}

void appendValue(MetadataSet & set, Types::UniversalLabel const & label, Types::SimpleDataType const & value)
{
    get<CollectionElement>(set, label).append(value.clone());
}

MetadataSet * referenced(MetadataSet const & set, Types::UniversalLabel const & label)
{
    ReferenceElement const * const element = find<ReferenceElement>(set, label);
    return element != nullptr ? findReferenced(set, element->value()) : nullptr;
}

MetadataSet * referencedItem(MetadataSet const & set, Types::UniversalLabel const & label, unsigned int index)
{
    CollectionReferenceElement const * const references = find<CollectionReferenceElement>(set, label);
    return references != nullptr && index < references->size() ? findReferenced(set, &references->at(index)) : nullptr;
}

void insertReference(MetadataSet & set, Types::UniversalLabel const & label, unsigned int index, MetadataSet * target)
{
    get<ArrayReferenceElement>(set, label).insertAt(index, target);
}

void appendReference(MetadataSet & set, Types::UniversalLabel const & label, MetadataSet * target)
{
    get<CollectionReferenceElement>(set, label).append(target);
}

MetadataSet * findSet(MetadataSet const & set, Types::UniversalLabel const & label, Types::SimpleDataType const * value)
{
    if (value == nullptr || set.owner() == nullptr)
        return nullptr;
    Templates::vector<MetadataSet *> const found = set.owner()->find(label, *value);
    return found.empty() ? nullptr : found.front();
}

}}}

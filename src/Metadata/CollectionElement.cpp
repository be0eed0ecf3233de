#include "Metadata/CollectionElement.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Metadata/CollectionChange.h"
#include "Types/Collection.h"

#include <utility>

namespace Vantry { namespace Metadata {

CollectionElement::CollectionElement(Types::Identifiers::Identifier kind,
                                     Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
                                     MetadataSet & set) :
    Element(std::move(attribute), set), kind_(kind)
{
}

CollectionElement::~CollectionElement() = default;

void CollectionElement::load(KLV::Value & value)
{
    CollectionChange(*this, kind_, value_).load(value);
}

bool CollectionElement::empty() const
{
    return !value_;
}

UInt64 CollectionElement::totalLength() const
{
    return value_ ? value_->serializedSize() : 0;
}

Types::SimpleDataType const & CollectionElement::at(unsigned int index) const
{
    if (index >= size())
        VANTRY_FAIL(IndexOutOfBounds, "Trying to access a element beyond the end of data");
    return std::as_const(*value_).at(index);
}

unsigned int CollectionElement::size() const
{
    return value_ ? value_->size() : 0;
}

Types::Collection const * CollectionElement::value() const
{
    return value_.get();
}

void CollectionElement::set(Templates::auto_ptr<Types::Collection> collection)
{
    CollectionChange(*this, kind_, value_).set(std::move(collection));
}

void CollectionElement::append(Templates::auto_ptr<Types::SimpleDataType> item)
{
    if (item)
        checkIfValueIsInEnumeration(*item);
    CollectionChange(*this, kind_, value_).append(std::move(item));
}

void CollectionElement::remove(unsigned int index)
{
    CollectionChange(*this, kind_, value_).remove(index);
}

void CollectionElement::replace(Templates::auto_ptr<Types::Collection> collection)
{
    CollectionChange(*this, kind_, value_).replace(std::move(collection));
}

void CollectionElement::insertItem(unsigned int index, Templates::auto_ptr<Types::SimpleDataType> item)
{
    if (item)
        checkIfValueIsInEnumeration(*item);
    CollectionChange(*this, kind_, value_).insert(index, std::move(item));
}

void CollectionElement::serializeValue(DataIO::DataSink & sink) const
{
    value_->serialize(sink);
}

}}

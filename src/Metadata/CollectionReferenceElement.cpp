#include "Metadata/CollectionReferenceElement.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidChange.h"
#include "MetaMetadata/MetaCollectionElement.h"
#include "Metadata/CollectionChange.h"
#include "Metadata/References.h"
#include "Metadata/SchemaRules.h"
#include "Types/Collection.h"
#include "Types/Reference.h"

#include <utility>

namespace Vantry { namespace Metadata {

CollectionReferenceElement::CollectionReferenceElement(
    Types::Identifiers::Identifier kind, Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
    MetadataSet & set) :
    Element(std::move(attribute), set), ReferenceHolder(metaElement()), kind_(kind)
{
}

CollectionReferenceElement::~CollectionReferenceElement() = default;

void CollectionReferenceElement::load(KLV::Value & value)
{
    CollectionChange(*this, kind_, value_).load(value);
}

bool CollectionReferenceElement::empty() const
{
    return !value_;
}

UInt64 CollectionReferenceElement::totalLength() const
{
    return value_ ? value_->serializedSize() : 0;
}

Types::Reference const & CollectionReferenceElement::at(unsigned int index) const
{
    if (index >= size())
        VANTRY_FAIL(IndexOutOfBounds, "Trying to access a element beyond the end of data");
    return References::asReference(std::as_const(*value_).at(index));
}

unsigned int CollectionReferenceElement::size() const
{
    return value_ ? value_->size() : 0;
}

Types::Collection const * CollectionReferenceElement::value() const
{
    return value_.get();
}

void CollectionReferenceElement::set(Templates::auto_ptr<Types::Collection> collection)
{
    CollectionChange(*this, kind_, value_).set(std::move(collection));
}

void CollectionReferenceElement::append(MetadataSet * target)
{
    CollectionChange(*this, kind_, value_).append(referenceTo(target));
}

void CollectionReferenceElement::appendUnverifiedReference(Templates::auto_ptr<Types::Reference> reference)
{
    checkReference(reference.get());
    CollectionChange(*this, kind_, value_).append(std::move(reference));
}

void CollectionReferenceElement::remove(unsigned int index)
{
    CollectionChange(*this, kind_, value_).remove(index);
}

void CollectionReferenceElement::replace(Templates::auto_ptr<Types::Collection> collection)
{
    CollectionChange(*this, kind_, value_).replace(std::move(collection));
}

void CollectionReferenceElement::insertSet(unsigned int index, MetadataSet const * target)
{
    CollectionChange(*this, kind_, value_).insert(index, referenceTo(target));
}

void CollectionReferenceElement::insertReference(unsigned int index, Templates::auto_ptr<Types::Reference> reference)
{
    checkReference(reference.get());
    CollectionChange(*this, kind_, value_).insert(index, std::move(reference));
}

// No reference for no set; the change then refuses it.
Templates::auto_ptr<Types::Reference> CollectionReferenceElement::referenceTo(MetadataSet const * target) const
{
    if (target != nullptr)
        checkIfSetCanBeReferenced(target);
    SchemaRules::requirePlace(*this, SchemaRules::NO_PLACE_TEXT);
    if (target == nullptr)
        return Templates::auto_ptr<Types::Reference>();

    auto const * const rules = SchemaRules::collectionRules(*this);
    return References::referenceTo(*target, rules != nullptr ? rules->dataSubType() : Types::Identifiers::Unknown);
}

void CollectionReferenceElement::checkReference(Types::Reference const * reference) const
{
    auto const * const rules = SchemaRules::collectionRules(*this);
    Types::Identifiers::Identifier const given = SchemaRules::identifierOf(reference);
    if (rules == nullptr || given == rules->dataSubType())
        return;

    char const * const className = kind_ == Types::Identifiers::Array ? "on a ArrayReferenceElement expecting a "
                                                                      : "on a BatchReferenceElement expecting a ";
    VANTRY_FAIL(InvalidChange, Platform::stringToWstring("Trying to set a ") +
                                   Types::Identifiers::identifierToString(given) + Platform::stringToWstring(" ") +
                                   Platform::stringToWstring(className) +
                                   Types::Identifiers::identifierToString(rules->dataSubType()));
}

void CollectionReferenceElement::serializeValue(DataIO::DataSink & sink) const
{
    value_->serialize(sink);
}

}}

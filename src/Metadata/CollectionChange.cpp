#include "Metadata/CollectionChange.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidChange.h"
#include "Exceptions/InvalidElement.h"
#include "Exceptions/InvalidMetaAttribute.h"
#include "KLV/Value.h"
#include "MetaMetadata/MetaCollectionElement.h"
#include "Metadata/Element.h"
#include "Metadata/OwnerCalls.h"
#include "Metadata/SchemaRules.h"
#include "Types/Array.h"
#include "Types/Batch.h"
#include "Types/Factories/BaseTypeFactory.h"

#include <utility>

namespace Vantry { namespace Metadata {

namespace {

using SchemaRules::aboutValue;
using SchemaRules::collectionRules;
using SchemaRules::identifierOf;

[[noreturn]] void failTooMany(Element const & element, unsigned int maximum)
{
    VANTRY_FAIL(InvalidChange,
                aboutValue(element, "': Schema only allows to add ", maximum, " elements to this collection."));
}

[[noreturn]] void failTooFew(Element const & element, unsigned int minimum)
{
    VANTRY_FAIL(InvalidChange,
                aboutValue(element, "': Schema does not allow less than ", minimum, " elements in the collection."));
}

Templates::auto_ptr<Types::Collection> emptyCollection(Types::Identifiers::Identifier kind, int elementSize)
{
    Templates::auto_ptr<Types::Collection> collection;
    if (kind == Types::Identifiers::Array)
        collection.reset(new Types::Array(elementSize));
    else
        collection.reset(new Types::Batch(elementSize));
    return collection;
}

}

void CollectionChange::replace(Templates::auto_ptr<Types::Collection> collection)
{
    OwnerCalls::changed(element_, held_.get(), collection.get());
    held_ = std::move(collection);
}

void CollectionChange::load(KLV::Value & value)
{
    auto const * const rules = collectionRules(element_);
    if (element_.placeInSchema() == nullptr || rules == nullptr)
        VANTRY_FAIL(InvalidMetaAttribute, "Null Meta Attribute");

    auto collection =
        Types::Factories::BaseTypeFactory::instance().create(value, rules->dataType(), rules->dataSubType());
    if (!collection)
        return;
    // A loaded collection is always new to the owner.
    OwnerCalls::added(element_, *collection);
    held_ = std::move(collection);
}

void CollectionChange::set(Templates::auto_ptr<Types::Collection> collection)
{
    if (collection)
        checkCollection(*collection);
    replace(std::move(collection));
}

void CollectionChange::append(Templates::auto_ptr<Types::SimpleDataType> item)
{
    checkItem(item.get());
    checkRoom();
    checkSize(*item, "Appending an invalid element");
    makeCollection(*item);
    OwnerCalls::changedItem(element_, *held_, size(), item.get());
    held_->append(std::move(item));
}

void CollectionChange::insert(unsigned int index, Templates::auto_ptr<Types::SimpleDataType> item)
{
    checkItem(item.get());
    checkRoom();
    checkSize(*item, "Trying to insert an invalid element");
    if (index > size())
        VANTRY_FAIL(IndexOutOfBounds, "Trying to insert an element past the end of the data");
    makeCollection(*item);

    auto * const array = dynamic_cast<Types::Array *>(held_.get());
    if (array == nullptr)
        VANTRY_FAIL(InvalidChange, aboutValue(element_, "': Collection can not be changed to another type!"));
    OwnerCalls::changedItem(element_, *held_, index, item.get());
    // The first item gives a collection without items their size, if it is
    // appended.
    if (index == size())
        array->append(std::move(item));
    else
        array->insertAt(index, std::move(item));
}

void CollectionChange::remove(unsigned int index)
{
    if (index >= size())
        VANTRY_FAIL(IndexOutOfBounds, "Index out of bounds");

    auto const * const rules = collectionRules(element_);
    if (rules != nullptr && size() <= rules->collectionSizeLimits().minimum)
        failTooFew(element_, rules->collectionSizeLimits().minimum);

    OwnerCalls::changedItem(element_, *held_, index, nullptr);
    held_->remove(index);
}

void CollectionChange::checkCollection(Types::Collection const & collection) const
{
    if (identifierOf(&collection) != kind_)
        VANTRY_FAIL(InvalidChange, aboutValue(element_, "': Collection can not be changed to another type!"));

    auto const * const rules = collectionRules(element_);
    if (rules == nullptr)
        return;
    auto const & limits = rules->collectionSizeLimits();
    if (collection.size() < limits.minimum)
        failTooFew(element_, limits.minimum);
    if (collection.size() > limits.maximum)
        failTooMany(element_, limits.maximum);
    if (collection.size() != 0 && identifierOf(&collection.at(0)) != rules->dataSubType())
        VANTRY_FAIL(InvalidChange, aboutValue(element_, "': Setting collection with an invalid Sub Type."));
}

void CollectionChange::checkItem(Types::SimpleDataType const * item) const
{
    auto const * const rules = collectionRules(element_);
    if (item == nullptr || (rules != nullptr && identifierOf(item) != rules->dataSubType()))
        VANTRY_FAIL(InvalidChange, aboutValue(element_, "': Setting value with an invalid Sub Type in a collection."));
}

// The collection says the same, but only after the owner has been told.
void CollectionChange::checkSize(Types::SimpleDataType const & item, char const * text) const
{
    if (held_ && held_->elementSize() != item.serializedSize() && !(held_->elementSize() == 0 && held_->size() == 0))
        VANTRY_FAIL(InvalidElement, text);
}

void CollectionChange::checkRoom() const
{
    auto const * const rules = collectionRules(element_);
    if (rules != nullptr && size() >= rules->collectionSizeLimits().maximum)
        failTooMany(element_, rules->collectionSizeLimits().maximum);
}

void CollectionChange::makeCollection(Types::SimpleDataType const & item)
{
    if (!held_)
        set(emptyCollection(kind_, item.serializedSize()));
}

unsigned int CollectionChange::size() const
{
    return held_ ? held_->size() : 0;
}

}}

#include "Metadata/ArrayElement.h"

#include "Metadata/OwnerCalls.h"
#include "Types/Collection.h"
#include "Types/SimpleDataType.h"

#include <utility>

namespace Vantry { namespace Metadata {

ArrayElement::ArrayElement(Templates::auto_ptr<Types::Collection> value,
                           Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
                           MetadataSet & set) :
    ConcreteElement(Types::Identifiers::Array, std::move(attribute), set)
{
    replace(std::move(value));
}

ArrayElement::~ArrayElement()
{
    OwnerCalls::removedWithElement(*this, value());
}

void ArrayElement::insertAt(unsigned int index, Templates::auto_ptr<Types::SimpleDataType> item)
{
    insertItem(index, std::move(item));
}

}}

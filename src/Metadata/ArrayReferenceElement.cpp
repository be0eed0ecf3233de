#include "Metadata/ArrayReferenceElement.h"

#include "Metadata/OwnerCalls.h"
#include "Types/Collection.h"
#include "Types/Reference.h"

#include <utility>

namespace Vantry { namespace Metadata {

ArrayReferenceElement::ArrayReferenceElement(Templates::auto_ptr<Types::Collection> value,
                                             Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
                                             MetadataSet & set) :
    ConcreteElement(Types::Identifiers::Array, std::move(attribute), set)
{
    replace(std::move(value));
}

ArrayReferenceElement::~ArrayReferenceElement()
{
    OwnerCalls::removedWithElement(*this, value());
}

void ArrayReferenceElement::insertAt(unsigned int index, MetadataSet * target)
{
    insertSet(index, target);
}

void ArrayReferenceElement::insertUnverifiedReferenceAt(unsigned int index,
                                                        Templates::auto_ptr<Types::Reference> reference)
{
    insertReference(index, std::move(reference));
}

}}

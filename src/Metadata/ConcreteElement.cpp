#include "Metadata/ConcreteElement.h"

#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/References.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/Visitors/ElementVisitor.h"
#include "Metadata/Visitors/NonConstElementVisitor.h"
#include "Types/Collection.h"
#include "Types/Reference.h"

namespace Vantry { namespace Metadata {

namespace {

// A copy of what an element may hold.
template <class Value>
Templates::auto_ptr<Value> copyOf(Value const * value)
{
    return value != nullptr ? value->clone() : Templates::auto_ptr<Value>();
}

Templates::auto_ptr<Types::Reference> copyOf(Types::Reference const * value)
{
    return References::asReference(copyOf<Types::SimpleDataType>(value));
}

}

template <class Self, class Base>
void ConcreteElement<Self, Base>::accept(Visitors::NonConstElementVisitor & visitor)
{
    visitor.visit(static_cast<Self &>(*this));
}

template <class Self, class Base>
void ConcreteElement<Self, Base>::accept(Visitors::ElementVisitor & visitor) const
{
    visitor.visit(static_cast<Self const &>(*this));
}

template <class Self, class Base>
Templates::auto_ptr<Element> ConcreteElement<Self, Base>::clone(MetadataSet & set)
{
    return Templates::auto_ptr<Element>(
        new Self(copyOf(static_cast<Self const &>(*this).value()), this->metaAttribute(), set));
}

template class ConcreteElement<SimpleElement, Element>;
template class ConcreteElement<ReferenceElement, Element>;
template class ConcreteElement<ArrayElement, CollectionElement>;
template class ConcreteElement<BatchElement, CollectionElement>;
template class ConcreteElement<ArrayReferenceElement, CollectionReferenceElement>;
template class ConcreteElement<BatchReferenceElement, CollectionReferenceElement>;

}}

#pragma once

#include "Metadata/Element.h"

namespace Vantry { namespace Metadata {

/// What makes `Self`, a class of elements, complete on top of `Base`: it is
/// visited as itself and copied as itself.
///
///     class BatchElement : public ConcreteElement<BatchElement, CollectionElement> { ... };
template <class Self, class Base>
class VANTRY_EXPORT ConcreteElement : public Base
{
public:
    void accept(Visitors::NonConstElementVisitor & visitor) override;
    void accept(Visitors::ElementVisitor & visitor) const override;
    Templates::auto_ptr<Element> clone(MetadataSet & set) override;

protected:
    using Base::Base;
};

}}

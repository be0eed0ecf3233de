#pragma once

#include "Metadata/CollectionReferenceElement.h"
#include "Metadata/ConcreteElement.h"

namespace Vantry { namespace Metadata {

/// An attribute that refers to sets in no order.
class VANTRY_EXPORT BatchReferenceElement : public ConcreteElement<BatchReferenceElement, CollectionReferenceElement>
{
public:
    /// \param value      the collection, a Types::Batch, which is told to the
    ///                   owner of the set as added, or null
    /// \param attribute  what is known of the attribute
    /// \param set        the set that the element is for
    BatchReferenceElement(Templates::auto_ptr<Types::Collection> value,
                          Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);
    ~BatchReferenceElement() override;
};

extern template class ConcreteElement<BatchReferenceElement, CollectionReferenceElement>;

}}

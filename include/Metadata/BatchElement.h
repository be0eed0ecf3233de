#pragma once

#include "Metadata/CollectionElement.h"
#include "Metadata/ConcreteElement.h"

namespace Vantry { namespace Metadata {

/// An attribute with plain values in no order.
class VANTRY_EXPORT BatchElement : public ConcreteElement<BatchElement, CollectionElement>
{
public:
    /// \param value      the collection, a Types::Batch, which is told to the
    ///                   owner of the set as added, or null
    /// \param attribute  what is known of the attribute
    /// \param set        the set that the element is for
    BatchElement(Templates::auto_ptr<Types::Collection> value,
                 Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);
    ~BatchElement() override;
};

extern template class ConcreteElement<BatchElement, CollectionElement>;

}}

#pragma once

#include "Metadata/CollectionElement.h"
#include "Metadata/ConcreteElement.h"

namespace Vantry { namespace Metadata {

/// An attribute with a row of plain values whose order counts.
class VANTRY_EXPORT ArrayElement : public ConcreteElement<ArrayElement, CollectionElement>
{
public:
    /// \param value      the collection, a Types::Array, which is told to the
    ///                   owner of the set as added, or null
    /// \param attribute  what is known of the attribute
    /// \param set        the set that the element is for
    ArrayElement(Templates::auto_ptr<Types::Collection> value,
                 Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);
    ~ArrayElement() override;

    /// Puts an item before the one at `index`, which may be `size()`.
    ///
    /// \throws Exceptions::InvalidChange, Exceptions::InvalidElement as
    ///         `append`.
    /// \throws Exceptions::IndexOutOfBounds when `index` is beyond `size()`.
    void insertAt(unsigned int index, Templates::auto_ptr<Types::SimpleDataType> item);
};

extern template class ConcreteElement<ArrayElement, CollectionElement>;

}}

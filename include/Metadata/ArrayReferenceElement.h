#pragma once

#include "Metadata/CollectionReferenceElement.h"
#include "Metadata/ConcreteElement.h"

namespace Vantry { namespace Metadata {

/// An attribute that refers to sets whose order counts.
class VANTRY_EXPORT ArrayReferenceElement : public ConcreteElement<ArrayReferenceElement, CollectionReferenceElement>
{
public:
    /// \param value      the collection, a Types::Array, which is told to the
    ///                   owner of the set as added, or null
    /// \param attribute  what is known of the attribute
    /// \param set        the set that the element is for
    ArrayReferenceElement(Templates::auto_ptr<Types::Collection> value,
                          Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);
    ~ArrayReferenceElement() override;

    /// Puts a reference to a set before the one at `index`, which may be
    /// `size()`.
    ///
    /// \throws Exceptions::IndexOutOfBounds when `index` is beyond `size()`,
    ///         and what `append` throws.
    void insertAt(unsigned int index, MetadataSet * target);

    /// Puts a reference, whatever it refers to, before the one at `index`.
    ///
    /// \throws Exceptions::IndexOutOfBounds when `index` is beyond `size()`,
    ///         and what `appendUnverifiedReference` throws.
    void insertUnverifiedReferenceAt(unsigned int index, Templates::auto_ptr<Types::Reference> reference);
};

extern template class ConcreteElement<ArrayReferenceElement, CollectionReferenceElement>;

}}

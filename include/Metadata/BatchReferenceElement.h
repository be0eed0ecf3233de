#pragma once

#include "Metadata/CollectionReferenceElement.h"

namespace Vantry { namespace Metadata {

/// An attribute that refers to sets in no order.
class VANTRY_EXPORT BatchReferenceElement : public CollectionReferenceElement
{
public:
    /// \param value      the collection, a Types::Batch, which is told to the
    ///                   owner of the set as added, or null
    /// \param attribute  what is known of the attribute
    /// \param set        the set that the element is for
    BatchReferenceElement(Templates::auto_ptr<Types::Collection> value,
                          Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);
    ~BatchReferenceElement() override;

    void accept(Visitors::NonConstElementVisitor & visitor) override;
    void accept(Visitors::ElementVisitor & visitor) const override;
    Templates::auto_ptr<Element> clone(MetadataSet & set) override;
};

}}

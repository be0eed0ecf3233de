#pragma once

#include "Metadata/ConcreteElement.h"
#include "Metadata/ReferenceHolder.h"
#include "Types/Reference.h"

namespace Vantry { namespace Metadata {

/// An attribute that refers to one set.
class VANTRY_EXPORT ReferenceElement : public ConcreteElement<ReferenceElement, Element>, private ReferenceHolder
{
public:
    /// \param value      the reference, which is told to the owner of the set
    ///                   as added, or null
    /// \param attribute  what is known of the attribute
    /// \param set        the set that the element is for
    ReferenceElement(Templates::auto_ptr<Types::Reference> value,
                     Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);
    ~ReferenceElement() override;

    void load(KLV::Value & value) override;
    bool empty() const override;
    UInt64 totalLength() const override;

    /// The reference; null when there is none.
    Types::Reference const * value() const noexcept { return value_.get(); }

    /// Refers to a set, strongly or weakly as the schema says; null takes the
    /// reference away, required or not.
    ///
    /// \throws Exceptions::InvalidMetaAttribute for an attribute that has no
    ///         place in the schema of its set or is no reference there.
    /// \throws Exceptions::MetadataSetReferenceNotAllowed for a set of a kind
    ///         that the schema doesn't list.
    /// \throws Exceptions::NotFound for a set without instance identifier.
    void set(MetadataSet const * target);

    /// Replaces the reference, whatever it refers to; null takes it away.
    ///
    /// \throws Exceptions::InvalidChange for a value of another type than the
    ///         dictionary's, and for null where the schema requires a value.
    void set(Templates::auto_ptr<Types::SimpleDataType> value);

    /// As `set` of a value: refers to a set that need not be there yet.
    void setUnverifiedReference(Templates::auto_ptr<Types::Reference> reference);

private:
    void serializeValue(DataIO::DataSink & sink) const override;
    void replace(Templates::auto_ptr<Types::Reference> value);

    Templates::auto_ptr<Types::Reference> value_;
};

extern template class ConcreteElement<ReferenceElement, Element>;

}}

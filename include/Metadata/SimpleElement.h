#pragma once

#include "Metadata/ConcreteElement.h"
#include "Metadata/ValueHolder.h"
#include "Types/SimpleDataType.h"

namespace Vantry { namespace Metadata {

/// An attribute with one plain value.
class VANTRY_EXPORT SimpleElement : public ConcreteElement<SimpleElement, Element>, private ValueHolder
{
public:
    /// \param value      the value, which is told to the owner of the set as
    ///                   added, or null
    /// \param attribute  what is known of the attribute
    /// \param set        the set that the element is for
    SimpleElement(Templates::auto_ptr<Types::SimpleDataType> value,
                  Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);
    ~SimpleElement() override;

    void load(KLV::Value & value) override;
    bool empty() const override;
    UInt64 totalLength() const override;

    /// The value; null when there is none.
    Types::SimpleDataType const * value() const noexcept { return value_.get(); }

    /// Replaces the value; null takes it away.
    ///
    /// \param force  take away also what the schema requires
    /// \throws Exceptions::InvalidChange for a value of another type than the
    ///         dictionary's, and for null where the schema requires a value.
    void set(Templates::auto_ptr<Types::SimpleDataType> value, bool force);

private:
    void serializeValue(DataIO::DataSink & sink) const override;
    void replace(Templates::auto_ptr<Types::SimpleDataType> value);

    Templates::auto_ptr<Types::SimpleDataType> value_;
};

extern template class ConcreteElement<SimpleElement, Element>;

}}

#pragma once

#include "MetaMetadata/MetaElement.h"
#include "MetaMetadata/MetaValueHolder.h"

namespace Vantry { namespace MetaMetadata {

/// An attribute with one plain value.
class VANTRY_EXPORT MetaSimpleElement : public MetaElement, public MetaValueHolder
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::InvalidMetaElement for a type of collections or
    ///         references.
    MetaSimpleElement(Types::UniversalLabel const & label, Types::Identifiers::Identifier dataType);
    MetaSimpleElement(Types::UniversalLabel const & label, Enumeration const & enumeration,
                      Types::Identifiers::Identifier dataType);
    MetaSimpleElement(MetaSimpleElement const &) = default;
    MetaSimpleElement & operator=(MetaSimpleElement const & other);

    void accept(Visitors::NonConstMetaElementVisitor & visitor) override;
    void accept(Visitors::MetaElementVisitor & visitor) const override;
};

}}

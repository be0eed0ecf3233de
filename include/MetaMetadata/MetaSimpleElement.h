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

/// As for any MetaElement; without this the bases would both have a claim.
inline bool operator==(MetaSimpleElement const & left, MetaSimpleElement const & right)
{
    return static_cast<MetaElement const &>(left) == static_cast<MetaElement const &>(right);
}

}}

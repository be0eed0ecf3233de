#pragma once

#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/MetaValueHolder.h"

namespace Vantry { namespace MetaMetadata {

/// An attribute with any number of plain values.
class VANTRY_EXPORT MetaCollection : public MetaCollectionElement, public MetaValueHolder
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::InvalidMetaElement for limits or types that don't
    ///         fit, see MetaCollectionElement; for a sub type of collections
    ///         or references.
    MetaCollection(Types::UniversalLabel const & label, CollectionSizeLimits const & limits,
                   Types::Identifiers::Identifier dataType, Types::Identifiers::Identifier dataSubType);
    MetaCollection(Types::UniversalLabel const & label, CollectionSizeLimits const & limits,
                   Enumeration const & enumeration, Types::Identifiers::Identifier dataType,
                   Types::Identifiers::Identifier dataSubType);
    MetaCollection(MetaCollection const &) = default;
    MetaCollection & operator=(MetaCollection const & other);

    void accept(Visitors::NonConstMetaElementVisitor & visitor) override;
    void accept(Visitors::MetaElementVisitor & visitor) const override;
};

/// As for any MetaElement; without this the bases would both have a claim.
inline bool operator==(MetaCollection const & left, MetaCollection const & right)
{
    return static_cast<MetaElement const &>(left) == static_cast<MetaElement const &>(right);
}

}}

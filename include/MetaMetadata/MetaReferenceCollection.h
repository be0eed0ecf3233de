#pragma once

#include "MetaMetadata/MetaCollectionElement.h"
#include "MetaMetadata/MetaReferenceHolder.h"

namespace Vantry { namespace MetaMetadata {

/// An attribute that refers to any number of sets.
class VANTRY_EXPORT MetaReferenceCollection : public MetaCollectionElement, public MetaReferenceHolder
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::InvalidMetaElement for limits or types that don't
    ///         fit, see MetaCollectionElement; for a sub type that is neither
    ///         StrongReference nor WeakReference.
    MetaReferenceCollection(Types::UniversalLabel const & label, CollectionSizeLimits const & limits,
                            Keys const & allowed, Types::Identifiers::Identifier dataType,
                            Types::Identifiers::Identifier dataSubType);
    MetaReferenceCollection(MetaReferenceCollection const &) = default;
    MetaReferenceCollection & operator=(MetaReferenceCollection const & other);

    void accept(Visitors::NonConstMetaElementVisitor & visitor) override;
    void accept(Visitors::MetaElementVisitor & visitor) const override;
};

/// As for any MetaElement; without this the bases would both have a claim.
inline bool operator==(MetaReferenceCollection const & left, MetaReferenceCollection const & right)
{
    return static_cast<MetaElement const &>(left) == static_cast<MetaElement const &>(right);
}

}}
